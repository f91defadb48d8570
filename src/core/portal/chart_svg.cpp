#include "core/portal/chart_svg.h"

#include "core/portal/html_page.h"
#include "core/quotes/number_text.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

/// Measures of one size, in pixels.
struct Layout {
    int width, height;
    int left, right, top, bottom; ///< the edges of the plot
    int titleSize, textSize;
    int bannerSize, noteSize; ///< of the note, as far as it fits in one line, else in lines
    int gridLines;
};

// clang-format off
constexpr Layout kSmall{192,  96, 6, 140, 20,  80, 11, 10, 11,  9, 2};
constexpr Layout kLarge{512, 288, 12, 440, 36, 268, 15, 12, 18, 12, 5};
// clang-format on

// Colours on white; the texts keep a contrast above 4.5.
constexpr std::string_view kCurve = "#0b5cad";
constexpr std::string_view kArea = "#e3eefa";
constexpr std::string_view kGrid = "#d5dae0";
constexpr std::string_view kText = "#24292f";
constexpr std::string_view kNote = "#5a6572";

constexpr double kCharacterWidth = 0.6; // of a text, in parts of its size

/// A price beside the grid; large ones drop the decimals that would not fit.
std::string AxisText(double price) {
    constexpr double kLargePrice = 10'000;
    return price < kLargePrice ? PriceText(price) : ShortText(price);
}

std::string Number(double value) {
    return FixedText(value, 1);
}

/// A text element; `anchor` is "start", "middle" or "end".
std::string Text(double x, double y, int size, std::string_view anchor, std::string_view colour,
                 std::string_view text) {
    return "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" font-size=\"" +
           std::to_string(size) + "\" text-anchor=\"" + std::string(anchor) + "\" fill=\"" +
           std::string(colour) + "\">" + ShownText(text) + "</text>";
}

/// The words of a text in lines of so many characters; a longer word has a line of its own.
std::vector<std::string> Wrapped(std::string_view text, std::size_t length) {
    std::vector<std::string> lines;
    for (const std::string_view word : Split(text, ' ')) {
        if (!lines.empty() && lines.back().size() + 1 + word.size() <= length)
            lines.back().append(" ").append(word);
        else
            lines.emplace_back(word);
    }
    return lines;
}

/// The note under the plot: a short one in one line, a long one in small lines.
struct Note {
    int size = 0;
    std::vector<std::string> lines;

    Note(std::string_view text, const Layout& layout) : size(layout.bannerSize) {
        const double width = layout.width - 2 * layout.left;
        const auto fits = [&] {
            return static_cast<std::size_t>(width / (kCharacterWidth * size));
        };
        if (text.empty())
            return;
        if (text.size() > fits())
            size = layout.noteSize;
        lines = Wrapped(text, fits());
    }

    int Height() const { return static_cast<int>(lines.size()) * (size + 1); }

    std::string Svg(const Layout& layout) const {
        std::string svg;
        int y = layout.height - 3 - Height() + size + 1;
        for (const std::string& line : lines) {
            svg += Text(layout.left, y, size, "start", kNote, line);
            y += size + 1;
        }
        return svg;
    }
};

std::string Line(double x1, double y1, double x2, double y2) {
    return "<line x1=\"" + Number(x1) + "\" y1=\"" + Number(y1) + "\" x2=\"" + Number(x2) +
           "\" y2=\"" + Number(y2) + "\" stroke=\"" + std::string(kGrid) + "\"/>";
}

/// Prices of the plot's lower and upper edge.
struct Range {
    double low, high;

    double Height(double value, const Layout& layout) const {
        return layout.bottom - (value - low) / (high - low) * (layout.bottom - layout.top);
    }
};

Range RangeOf(const std::vector<double>& values) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    if (*low < *high)
        return {*low, *high};
    // A flat curve runs through the middle.
    const double margin = std::max(*low / 100, 0.01);
    return {*low - margin, *high + margin};
}

std::string Grid(const Range& range, const Layout& layout) {
    std::string svg;
    for (int line = 0; line < layout.gridLines; ++line) {
        const double price = range.low + (range.high - range.low) * line / (layout.gridLines - 1);
        const double y = range.Height(price, layout);
        svg += Line(layout.left, y, layout.right, y) +
               Text(layout.right + 4, y + layout.textSize * 0.35, layout.textSize, "start", kText,
                    AxisText(price));
    }
    return svg;
}

std::string Labels(const std::vector<ChartLabel>& labels, const Layout& layout) {
    std::string svg;
    double free = 0; // where the next label may begin
    for (const ChartLabel& label : labels) {
        const double half =
            static_cast<double>(label.text.size()) * kCharacterWidth * layout.textSize / 2;
        // The last one ends with the plot: to the right of it stand the prices.
        const double x = std::clamp(layout.left + label.at * (layout.right - layout.left), half + 2,
                                    std::max(half + 2, layout.right - half));
        if (x - half < free)
            continue;
        free = x + half + layout.textSize / 3.0;
        svg += Text(x, layout.bottom + layout.textSize + 2, layout.textSize, "middle", kText,
                    label.text);
    }
    return svg;
}

std::string Curve(const std::vector<double>& values, const Range& range, const Layout& layout) {
    const double step = static_cast<double>(layout.right - layout.left) /
                        static_cast<double>(std::max<std::size_t>(values.size() - 1, 1));
    std::string points;
    double x = layout.left;
    for (const double value : values) {
        points += Number(x) + "," + Number(range.Height(value, layout)) + " ";
        x += step;
    }
    const std::string bottom = Number(layout.bottom);
    return "<polygon fill=\"" + std::string(kArea) + "\" points=\"" + Number(layout.left) + "," +
           bottom + " " + points + Number(x - step) + "," + bottom + "\"/><polyline fill=\"none\"" +
           " stroke=\"" + std::string(kCurve) + "\" stroke-width=\"1.5\" points=\"" + points +
           "\"/>";
}

} // namespace

std::string ChartSvg(const Chart& chart, ChartSize size) {
    Layout layout = size == ChartSize::Small ? kSmall : kLarge;
    const Note note(chart.note, layout);
    layout.bottom -= note.Height();
    const std::string width = std::to_string(layout.width);
    const std::string height = std::to_string(layout.height);

    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width +
                      "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height +
                      "\" font-family=\"sans-serif\" role=\"img\" aria-label=\"" +
                      ShownText(chart.title + ", " + chart.note) + "\"><rect width=\"" + width +
                      "\" height=\"" + height + "\" fill=\"#ffffff\"/>";
    const double titleLine = layout.titleSize + 2;
    if (chart.values.empty())
        return svg + Text(layout.left, titleLine, layout.titleSize, "start", kText, chart.title) +
               Text((layout.left + layout.right) / 2.0, layout.top + layout.titleSize,
                    layout.titleSize, "middle", kText, "no prices") +
               note.Svg(layout) + "</svg>";

    const Range range = RangeOf(chart.values);
    svg += Curve(chart.values, range, layout) + Grid(range, layout) + Labels(chart.labels, layout) +
           Text(layout.left, titleLine, layout.titleSize, "start", kText, chart.title) +
           Text(layout.width - 4, titleLine, layout.titleSize, "end", kCurve,
                PriceText(chart.values.back()));
    return svg + note.Svg(layout) + "</svg>";
}

} // namespace tallowmere
