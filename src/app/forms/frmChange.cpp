#include "app/forms/frmChange.h"

#include "app/base/QtText.h"
#include "app/forms/DialogKeys.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QTextCursor>
#include <QVBoxLayout>

#include <algorithm>
#include <span>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCharacters = 70;
constexpr int kLines = 20;
constexpr std::size_t kMostShown = 2'000; ///< lines; nobody reads more, and each takes its time
// The signs say the same to who sees no colours.
constexpr QRgb kNewOnLight = 0xFFD9F2D9, kGoneOnLight = 0xFFFADBD8;
constexpr QRgb kNewOnDark = 0xFF1E4620, kGoneOnDark = 0xFF5A1E1E;

} // namespace

frmChange::frmChange(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmChange"_s);
    auto* heading = new QLabel(u"Lines with + are new, lines with - are gone:"_s, this);
    heading->setTextFormat(Qt::PlainText);
    txtChange = new QPlainTextEdit(this);
    txtChange->setObjectName(u"txtChange"_s);
    txtChange->setAccessibleName(u"What changed"_s);
    txtChange->setReadOnly(true);
    txtChange->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    heading->setBuddy(txtChange);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(txtChange, 1);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * kCharacters, fontMetrics().height() * kLines);
}

void frmChange::Show(const std::vector<ChangedLine>& lines) {
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    txtChange->clear();
    QTextCursor cursor(txtChange->document());
    bool isFirst = true;
    const std::size_t shown = std::min(lines.size(), kMostShown);
    for (const ChangedLine& line : std::span(lines).first(shown)) {
        QTextBlockFormat block;
        block.setBackground(QColor::fromRgb(line.isNew ? isDark ? kNewOnDark : kNewOnLight
                                            : isDark   ? kGoneOnDark
                                                       : kGoneOnLight));
        if (isFirst)
            cursor.setBlockFormat(block);
        else
            cursor.insertBlock(block);
        isFirst = false;
        cursor.insertText((line.isNew ? u"+ "_s : u"- "_s) + ToQt(line.text));
    }
    if (shown < lines.size()) {
        cursor.insertBlock(QTextBlockFormat());
        cursor.insertText(u"... and %1 more"_s.arg(lines.size() - shown));
    }
    txtChange->moveCursor(QTextCursor::Start);
}

} // namespace tallowmere
