#include "app/forms/frmColor.h"

#include "app/base/QtText.h"
#include "app/forms/Chip.h"
#include "app/forms/DialogParts.h"
#include "core/tools/color_schemes.h"

#include <QApplication>
#include <QGridLayout>
#include <QShortcut>
#include <QVBoxLayout>

namespace tallowmere {

using namespace Qt::StringLiterals;

frmColor::frmColor(QWidget* parent) : QDialog(parent) {
    setObjectName(u"frmColor"_s);
    setWindowTitle(u"Color Settings"_s);
    BuildAreas();
    Label1 = new QLabel(u"Sample"_s, this);
    Label1->setObjectName(u"Label1"_s);
    Label1->setAccessibleName(u"Sample"_s);
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setFrameShape(QFrame::StyledPanel);
    Label1->setAutoFillBackground(true);
    Label1->setMinimumHeight(4 * fontMetrics().lineSpacing());
    cmdFore[0] = MakeButton(u"cmdFore0"_s, u"&Fore"_s, this);
    cmdFore[1] = MakeButton(u"cmdFore1"_s, u"&Back"_s, this);
    cmdReset = MakeButton(u"cmdReset"_s, u"&Reset Area"_s, this);
    cmbScheme = new QComboBox(this);
    cmbScheme->setObjectName(u"cmbScheme"_s);
    cmbScheme->setAccessibleName(u"Scheme"_s);
    cmbScheme->addItem(u"As designed"_s);
    for (const ColorScheme& scheme : ColorSchemes())
        cmbScheme->addItem(ToQt(scheme.name));
    cmbScheme->setPlaceholderText(u"Your own"_s);
    cmdResetAll = MakeButton(u"cmdResetAll"_s, u"Reset &All"_s, this);
    cmdOK = MakeButton(u"cmdOK"_s, u"&OK"_s, this);
    cmdOK->setDefault(true);
    cmdCancel = MakeButton(u"cmdCancel"_s, u"Cancel"_s, this);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    // The list would keep these keys for itself.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        new QShortcut(key, List1, cmdOK, &QPushButton::click, Qt::WidgetShortcut);
    LayOut();
    List1->setFocus();
}

void frmColor::BuildAreas() {
    List1 = new TextListBox(u"List1"_s, u"Areas"_s, this);
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
}

void frmColor::LayOut() {
    auto* scheme = new QLabel(u"&Scheme:"_s, this);
    scheme->setBuddy(cmbScheme);
    auto* side = new QVBoxLayout;
    for (QWidget* control :
         std::initializer_list<QWidget*>{Label1, cmdFore[0], cmdFore[1], cmdReset})
        side->addWidget(control);
    side->addSpacing(fontMetrics().lineSpacing());
    for (QWidget* control : std::initializer_list<QWidget*>{scheme, cmbScheme, cmdResetAll})
        side->addWidget(control);
    side->addStretch(1);
    side->addWidget(cmdOK);
    side->addWidget(cmdCancel);
    auto* layout = new QGridLayout(this);
    layout->addWidget(List1, 0, 0);
    layout->addLayout(side, 0, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}

void frmColor::ShowSample(const ColorPair& colors) {
    const QPalette system = QApplication::palette(Label1);
    QPalette palette = system;
    palette.setColor(QPalette::WindowText, ScreenText(colors, system));
    palette.setColor(QPalette::Window, ScreenColor(colors.background, system));
    Label1->setPalette(palette);
}

} // namespace tallowmere
