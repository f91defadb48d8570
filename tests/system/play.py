#!/usr/bin/env python3
"""Plays a typical request in the program under a virtual display and leaves a picture of it:
play.py PROGRAM --output FILE [--size WIDTHxHEIGHT] [-- ARGUMENT...]
"""

import argparse
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
    parser.add_argument("--size")
    parser.add_argument("arguments", nargs="*")
    options = parser.parse_args()

    width, height = map(int, (options.size or "1280x900").split("x"))
    with driver.desktop((max(width, 800), max(height, 600))), \
            tempfile.TemporaryDirectory(prefix="profile-") as profile, \
            driver.Program(options.program, *options.arguments, profile=profile) as program:
        window = program.main_window()
        driver.place(program.window_id(), 0, 0, width, height)
        play(window)
        driver.wait_for(lambda: any("MSFT" in title for title in program.pages()),
                        "the page about MSFT")
        driver.screenshot(options.output)


if __name__ == "__main__":
    main()
