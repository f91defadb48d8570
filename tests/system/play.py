#!/usr/bin/env python3
"""Plays a typical request in the program under a virtual display and leaves a picture of it:
play.py --output FILE [--size WIDTHxHEIGHT] PROGRAM [ARGUMENT...]
"""

import argparse
import re
import tempfile

import driver


def play(window):
    """Types msft, presses Enter, selects it in the list and clicks "Y!"."""
    entry = window.find(role="text", name="Ticker entry")
    entry.click()
    driver.type_text("msft")
    driver.press("Return")
    window.find(role="list item", name="MSFT").click()
    window.find(name="Y!").click()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("program")
    parser.add_argument("--output", required=True)
    parser.add_argument("--size", default="1280x900")
    parser.add_argument("arguments", nargs=argparse.REMAINDER)
    options = parser.parse_args()

    width, height = map(int, options.size.split("x"))
    with driver.desktop(), tempfile.TemporaryDirectory(prefix="profile-") as profile, \
            driver.Program(options.program, *options.arguments, profile=profile) as program:
        window = program.main_window()
        # It is played where every link is in view.
        driver.place(program.window_id(), 0, 0, 1600, 1000)
        driver.wait_for(lambda: any(program.pages()), "the first page")
        first = program.pages()
        play(window)
        driver.wait_for(lambda: program.pages() not in (first, [""]), "the page about MSFT")
        if "sample" in options.arguments:
            window.find(name=re.compile("^NAS/NMS : "))
        driver.place(program.window_id(), 0, 0, width, height)
        driver.wait_for(lambda: program.main_window().extents[2:] == (width, height),
                        "the window in its new size")
        driver.screenshot_at_rest(options.output, program.window_id())


if __name__ == "__main__":
    main()
