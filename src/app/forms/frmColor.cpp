#include "app/forms/frmColor.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "core/tools/color_areas.h"

#include <QApplication>
#include <QGridLayout>
#include <QShortcut>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

frmColor::frmColor(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmColor"_s);
    setWindowTitle(u"Color Settings"_s);
    List1 = new ListBox(u"List1"_s, u"Areas"_s, this);
    QStringList entries;
    int width = 0;
    for (const ColorArea& area : kColorAreas) {
        entries << ToQt(area.entry);
        width = std::max(width, fontMetrics().horizontalAdvance(entries.last()));
    }
    List1->SetItems(entries);
    // All areas are in view at once.
    List1->setMinimumSize(width + 4 * fontMetrics().averageCharWidth(),
                          (static_cast<int>(entries.size()) + 1) * fontMetrics().lineSpacing());

    Label1 = new QLabel(u"Sample"_s, this);
    Label1->setObjectName(u"Label1"_s);
    Label1->setAccessibleName(u"Sample"_s);
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setFrameShape(QFrame::StyledPanel);
    Label1->setAutoFillBackground(true);
    Label1->setMinimumHeight(4 * fontMetrics().lineSpacing());

    const auto button = [this](const QString& name, const QString& caption) {
        auto* result = new QPushButton(caption, this);
        result->setObjectName(name);
        result->setAccessibleName(QString(caption).remove(u'&'));
        result->setAutoDefault(false);
        return result;
    };
    cmdFore[0] = button(u"cmdFore0"_s, u"&Fore"_s);
    cmdFore[1] = button(u"cmdFore1"_s, u"&Back"_s);
    cmdOK = button(u"cmdOK"_s, u"&OK"_s);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    // The list would keep these keys for itself.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        new QShortcut(key, List1, cmdOK, &QPushButton::click, Qt::WidgetShortcut);

    auto* side = new QVBoxLayout;
    side->addWidget(Label1);
    side->addWidget(cmdFore[0]);
    side->addWidget(cmdFore[1]);
    side->addStretch(1);
    side->addWidget(cmdOK);
    auto* layout = new QGridLayout(this);
    layout->addWidget(List1, 0, 0);
    layout->addLayout(side, 0, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    List1->setFocus();
}

void frmColor::ShowSample(const ColorPair& colors) {
    const QPalette system = QApplication::palette(Label1);
    QPalette palette = system;
    palette.setColor(QPalette::WindowText, ScreenText(colors, system));
    palette.setColor(QPalette::Window, ScreenColor(colors.background, system));
    Label1->setPalette(palette);
}

} // namespace tallowmere
