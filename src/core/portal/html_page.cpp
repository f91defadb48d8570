#include "core/portal/html_page.h"

#include "core/pages/page_scheme.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestShown = 2000;

// The columns of a wide table stand beside each other only where the window is wide enough; below
// that a row breaks into lines, and in a narrow pane it keeps name, price, change and time: the
// rest is a click away.
constexpr std::string_view kStyle = R"(
body { margin: 0 auto; max-width: 70rem; padding: 0 1rem 1rem; font: 0.95rem/1.45 sans-serif;
  color: var(--text); background: var(--page); }
.note { margin: 0 -1rem 1rem; padding: 0.4rem 1rem; font-weight: bold; color: var(--note-text);
  background: var(--note); }
h1 { margin: 0 0 0.2rem; font-size: 1.5rem; }
h2 { margin: 1.4rem 0 0.4rem; font-size: 1.1rem; }
p { margin: 0.3rem 0; }
a { color: var(--link); }
.quiet { color: var(--quiet); }
.up { color: var(--up); }
.down { color: var(--down); }
.price { font-size: 1.6rem; }
.old { color: var(--quiet); font-style: italic; }
body { overflow-wrap: break-word; }
code { overflow-wrap: anywhere; }
table.figures { border-collapse: collapse; margin: 0.5rem 0; }
table.figures th, table.figures td { padding: 0.2rem 0.7rem; text-align: right;
  border-bottom: 1px solid var(--line); font-variant-numeric: tabular-nums; }
table.figures th { background: var(--head); }
table.figures th:first-child, table.figures td:first-child,
table.names th:nth-child(2), table.names td:nth-child(2) { text-align: left; }
table.figures td { white-space: nowrap; }
table.rows td, table.figures small, table[border] td { white-space: normal; }
.beside { display: flex; flex-wrap: wrap; gap: 0 2rem; align-items: start; }
svg, img { max-width: 100%; height: auto; }
nav a { margin-right: 0.9rem; }
table[border] { border-collapse: collapse; margin: 0.6rem 0; }
table[border] td { padding: 0.15rem 0.5rem; border: 1px solid var(--line); }
@media screen and (max-width: 62rem) {
  table.rows, table.rows tbody, table[border], table[border] tbody { display: block; }
  table.rows tr, table[border] tr { display: flex; flex-wrap: wrap; gap: 0 0.8rem;
    align-items: baseline; padding: 0.15rem 0; border-bottom: 1px solid var(--line); }
  table.rows th { display: none; }
  table.rows td, table[border] td { padding: 0; border: none; }
  table.names td:nth-child(2) { flex: 1 1 9rem; }
  table.rows td:last-child { text-align: left; }
  table.rows td[data-name] { font-size: 0.8rem; color: var(--quiet); }
  table.rows td[data-name]:not([data-name=""])::before { content: attr(data-name) " "; }
}
@media screen and (max-width: 30rem) {
  .note { margin-bottom: 0.2rem; padding: 0.2rem 1rem; font-size: 0.8rem; font-weight: normal; }
  h1 { font-size: 1.1rem; }
  table.rows { margin: 0.2rem 0; line-height: 1.2; }
  table.rows tr { padding: 0; }
  table.rows td[data-name]:not([data-name=""]) { display: none; }
  table.rows td[data-name=""] { flex: 1 1 9rem; font-size: 0.7rem; }
  table.names td:nth-child(2) { font-size: 0.85rem; }
}
body.strip { margin: 0; max-width: none; padding: 0.2rem 0.5rem; white-space: nowrap;
  display: flex; overflow: hidden; }
.strip .note { flex: none; margin: 0 0.7rem 0 0; padding: 0 0.4rem; }
.strip .runs { overflow: hidden; flex: 1; }
.strip .run { display: inline-block; will-change: transform; }
.strip .run[data-rests] { transition: transform 0.2s steps(2); }
.strip .run > span { display: inline-block; min-width: 100vw; }
.strip .run > span > span { margin-right: 1.4rem; }
@media (prefers-reduced-motion: reduce) {
  .strip .runs { overflow-x: auto; } .strip [aria-hidden] { display: none; } }
@media print { body { max-width: none; padding: 0; font-size: 10pt; } nav { display: none; }
  .note { margin: 0 0 0.5rem; border: 1px solid; } }
)";

// The run goes by the clock, so that it stands where it stood when the page comes anew, and by
// whole pixels, for what does not move is not drawn. Nothing moves or is loaded while nobody sees
// it or while somebody is about to click.
constexpr std::string_view kStripScript = R"js(
const run = document.querySelector(".run"), entries = [...run.firstElementChild.children];
const seconds = Number(run.dataset.seconds), rests = "rests" in run.dataset;
const still = matchMedia("(prefers-reduced-motion: reduce)");
const mustWait = () => document.hidden || document.querySelector("body:hover, :focus");
const offset = turn => rests
  ? entries[Math.floor(turn * entries.length)].offsetLeft - entries[0].offsetLeft
  : Math.floor(turn * run.offsetWidth / 2);
let shown = Infinity, paused = 0, last = Date.now();
const move = () => {
  const now = Date.now();
  if (mustWait() || still.matches) paused += now - last;
  last = now;
  const left = still.matches ? 0 : offset((now - paused) / 1000 / seconds % 1);
  if (left === shown) return;
  run.style.transition = left < shown ? "none" : "";
  run.style.transform = "translateX(-" + left + "px)";
  shown = left;
};
if (entries.length) {
  move();
  setInterval(move, rests ? 250 : 34);
}
setInterval(() => { if (!mustWait()) location.reload(); }, 60000);
)js";

std::string Page(const PageFrame& frame, std::string_view title, std::string_view bodyAttribute,
                 std::string_view note, std::string_view body) {
    std::string page = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>";
    page.append(ShownText(title)).append(ShownText(frame.titleEnd)).append("</title><style>");
    page.append(":root { color-scheme: light dark; ").append(kLightPageColors);
    page.append(" }\n@media (prefers-color-scheme: dark) { :root { ").append(kDarkPageColors);
    page.append(" } }").append(kStyle);
    page.append("</style></head>\n<body").append(bodyAttribute).append(">");
    if (!note.empty())
        page.append("<p class=\"note\">").append(ShownText(note)).append("</p>\n");
    page.append(body).append("\n</body></html>\n");
    return page;
}

} // namespace

std::string HtmlPage(const PageFrame& frame, std::string_view title, std::string_view body) {
    return Page(frame, title, "", frame.note, body);
}

std::string HtmlStrip(const PageFrame& frame, std::string_view title, std::string_view run,
                      std::size_t seconds, StripPace pace) {
    std::string body = "<div class=\"runs\"><div class=\"run\" data-seconds=\"" +
                       std::to_string(std::max<std::size_t>(seconds, 1)) +
                       (pace == StripPace::Resting ? "\" data-rests" : "\"") + "><span>";
    // The second run is there for the eye and the pointer alone.
    body.append(run).append("</span><span aria-hidden=\"true\">");
    body.append(ReplaceAll(run, "<a ", "<a tabindex=\"-1\" "))
        .append("</span></div></div>\n")
        .append("<script>")
        .append(kStripScript)
        .append("</script>");
    return Page(frame, title, " class=\"strip\"", frame.stripNote, body);
}

std::string_view StripScript() {
    return kStripScript;
}

std::string ShownText(std::string_view text) {
    const bool isLong = text.size() > kLongestShown;
    std::string shown(text.substr(0, kLongestShown));
    std::replace_if(
        shown.begin(), shown.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return EscapeHtml(shown) + (isLong ? " ..." : "");
}

std::string HtmlLink(std::string_view href, std::string_view text) {
    return "<a href=\"" + EscapeHtml(href) + "\">" + ShownText(text) + "</a>";
}

} // namespace tallowmere
