#pragma once

#include "core/pages/saved_page.h"

#include <QByteArray>
#include <QPageLayout>

namespace tallowmere {

/// The margins of a page that is to have marks at its edges: those of the layout, and room for a
/// line above and below.
QPageLayout WithRoomForMarks(QPageLayout layout);

/// A document with the marks on each page, in the margins of the layout that it was made with. Its
/// own text stays text. Throws RuntimeError when it is no PDF document.
QByteArray WithMarks(const QByteArray& pdf, const QPageLayout& layout, const PrintMarks& marks);

} // namespace tallowmere
