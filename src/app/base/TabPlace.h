#pragma once

class QWidget;

namespace tallowmere {

/// Gives the controls in `group`, which were made later than what stands around it, the place of
/// the group in the order of the Tab key, each in the order in which it was made.
void TakeTabPlace(QWidget& group);

} // namespace tallowmere
