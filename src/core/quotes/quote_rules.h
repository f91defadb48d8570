#pragma once

#include "core/quotes/quote.h"

#include <set>
#include <string>

/// What is believed of an answer, and what is not.
namespace tallowmere {

/// Works out the change from the close of the day before, or that from the change, where a source
/// gave only one of them.
void CompleteChange(Quote& quote);

/// What the outside of an answer says against it: no answer, a refusal, a page for people where
/// data is due, something too large. None when the body is worth reading.
std::optional<SourceFailure> Refusal(const SourceResponse& response);

/// Keeps what can be believed of an answer: quotes and series of `asked` (in the program's form),
/// once each, with a price above zero and a time not after `now`; of a series of a day the prices
/// of that day, if there are several. Marks quotes that moved by half or more. Without anything
/// left the answer is Empty.
void KeepBelievable(SourceAnswer& answer, const std::set<std::string>& asked, std::int64_t now);

} // namespace tallowmere
