#pragma once

#include "core/quotes/company_names.h"

#include <QObject>

#include <functional>
#include <string>

namespace tallowmere {

class TextListBox;
class TickerBox;
class frmMain;

/// Offers tickers by the name of their company while somebody types into the entry box: a list
/// below the box, which leaves it the keyboard. Down and Up walk through it, Enter or a click takes
/// a ticker in place of what was typed and enters it, Escape sends it away. Who pays it no
/// attention types as without it.
class TickerCompletion : public QObject {
    Q_OBJECT
public:
    /// Gives what to offer for the text of the box up to the cursor.
    using Offer = std::function<NameOffer(const std::string& entry)>;

    TickerCompletion(frmMain& form, TickerBox& box);

    /// Offers what `offer` gives from now on.
    void Serve(Offer offer) { m_offer = std::move(offer); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LookSoon();
    void Look();
    void Show();
    void Hide();
    bool IsShown() const;
    int OwnKey(const QEvent& event) const;
    void Press(int key);
    void Walk(int by);
    void Take(int row);

    frmMain& m_form;
    TickerBox& m_box;
    Offer m_offer;
    NameOffer m_found;
    TextListBox* m_list = nullptr; ///< made when it is first shown
    bool m_looksSoon = false;
};

} // namespace tallowmere
