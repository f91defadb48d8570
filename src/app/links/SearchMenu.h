#pragma once

#include "app/base/Clock.h"
#include "core/links/page_place.h"
#include "core/links/type_ahead.h"

#include <QMenu>

namespace tallowmere {

/// A menu that may be long: it scrolls, and typing leads to the item that begins with what is
/// typed.
class SearchMenu : public QMenu {
    Q_OBJECT
public:
    /// `caption` is shown as it is, ampersands included.
    SearchMenu(const QString& caption, const Clock& clock, QWidget* parent);

    /// Makes the item at `position` the current one, counted without lines and disabled items. An
    /// item that heads a submenu does not open it.
    void Select(std::size_t position);

Q_SIGNALS:
    /// An item is about to be chosen, by a button or a key: where its page is to open.
    void Choosing(PagePlace place);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Search(const QString& typed);

    const Clock& m_clock;
    TypeAhead m_typed;
};

} // namespace tallowmere
