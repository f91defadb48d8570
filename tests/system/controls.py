"""What several tests do with the main window: its menus, its ticker list, and dialogs for files."""

import driver


def choose(window, *captions):
    """Opens menu after menu of the menu bar by a click and clicks on the last item."""
    menu = window.find(role="menu bar")
    for caption in captions:
        menu = menu.find(name=caption)
        menu.click()


def name_file(program, title, path):
    """Types a path into the dialog for files of that title and presses Enter."""
    dialog = program.application.find(name=title)
    driver.wait_for(lambda: dialog.extents[2] > 50, "the dialog's size")
    name = dialog.find(role="text", name="File name:")
    driver.wait_for(lambda: name.focused, "the focus on the name")
    driver.press("ctrl+a")
    driver.type_text(str(path))
    driver.wait_for(lambda: name.text == str(path), "the path in the box")
    driver.press("Return")
    driver.wait_for(lambda: not dialog.showing, "the dialog to close")


def tickers(window):
    return [item.name for item in window.find(role="list").find_all(role="list item")]


def wait_for_tickers(window, *wanted):
    driver.wait_for(lambda: tickers(window) == list(wanted), f"the tickers {wanted} in the list")


def select(window, ticker):
    item = window.find(role="list item", name=ticker)
    item.click()
    driver.wait_for(lambda: window.find(role="list item", name=ticker).selected,
                    f"{ticker} to be selected")
