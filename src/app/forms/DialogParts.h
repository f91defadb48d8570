#pragma once

class QPushButton;
class QString;
class QWidget;

namespace tallowmere {

/// A button of a dialog under its control name, with its caption, less the mark of its letter, as
/// accessible name. Enter presses the dialog's default button, not the one with the focus.
QPushButton* MakeButton(const QString& name, const QString& caption, QWidget* dialog);

/// Gives a window the size of so many characters by so many lines, or of most of the screen where
/// that is less.
void ResizeWithinScreen(QWidget& window, int characters, int lines);

} // namespace tallowmere
