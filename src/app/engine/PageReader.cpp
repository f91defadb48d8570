#include "app/engine/PageReader.h"

#include "app/engine/AnswerLater.h"
#include "app/engine/BrowserPane.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QUrl>
#include <QVariant>
#include <QWebEnginePage>
#include <QWebEngineScript>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

void Ask(QWebEnginePage& page, const QObject* owner, const QString& script,
         std::function<void(bool)> then) {
    page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                       [guard = QPointer(owner), then = std::move(then)](const QVariant& answer) {
                           if (guard)
                               then(answer.toBool());
                       });
}

} // namespace

void PageReader::ReadText(BrowserPane& pane, std::function<void(const QString&)> then) {
    const auto ask = [&](QWebEnginePage& page) {
        page.toPlainText([guard = QPointer(&pane), then](const QString& text) {
            AnswerLater(guard, then, text);
        });
    };
    if (!pane.AskPage(ask))
        AnswerLater(QPointer(&pane), then, QString());
}

// A name that two elements have is none; without a name the place among its like tells one.
void PageReader::ReadMark(BrowserPane& pane, std::function<void(const QString&)> then) {
    const QString script =
        u"(() => {"
        "  const marked = getSelection();"
        "  if (!marked.rangeCount || marked.isCollapsed) return '';"
        "  let node = marked.getRangeAt(0).commonAncestorContainer;"
        "  if (node.nodeType !== Node.ELEMENT_NODE) node = node.parentElement;"
        "  const steps = [];"
        "  for (; node && node !== document.documentElement; node = node.parentElement) {"
        "    const name = '#' + CSS.escape(node.id);"
        "    if (node.id && document.querySelectorAll(name).length === 1) {"
        "      steps.unshift(name);"
        "      break"
        "    }"
        "    let place = 1;"
        "    for (let e = node.previousElementSibling; e; e = e.previousElementSibling)"
        "      place += e.localName === node.localName ? 1 : 0;"
        "    steps.unshift(CSS.escape(node.localName) + ':nth-of-type(' + place + ')')"
        "  }"
        "  return steps.join(' > ')"
        "})()"_s;
    const auto ask = [&](QWebEnginePage& page) {
        page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                           [guard = QPointer(&pane), then](const QVariant& answer) {
                               AnswerLater(guard, then, answer.toString());
                           });
    };
    if (!pane.AskPage(ask))
        AnswerLater(QPointer(&pane), then, QString());
}

// The selector holds what a page chose for a name: it is handed over as data, not as script.
void PageReader::ReadPart(BrowserPane& pane, const QString& part,
                          std::function<void(const std::optional<QString>&)> then) {
    const QString data =
        QString::fromUtf8(QJsonDocument(QJsonArray{part}).toJson(QJsonDocument::Compact));
    const QString script = u"(part => {"
                           "  try {"
                           "    const found = document.querySelector(part);"
                           "    return found ? [found.innerText] : []"
                           "  } catch (nonsense) { return [] }"
                           "})("_s +
                           data + u"[0])"_s;
    pane.AskPage([&](QWebEnginePage& page) {
        page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                           [guard = QPointer(&pane), then](const QVariant& answer) {
                               const QVariantList found = answer.toList();
                               AnswerLater(guard, then,
                                           found.isEmpty()
                                               ? std::optional<QString>()
                                               : std::optional(found.first().toString()));
                           });
    });
}

void PageReader::IfEmpty(QWebEnginePage& page, const QObject* owner, std::function<void()> then) {
    page.toHtml([guard = QPointer(owner), then = std::move(then)](const QString& html) {
        if (guard && html == u"<html><head></head><body></body></html>")
            then();
    });
}

// No message of the engine tells of every refusal; but a frame that got no page stays at the blank
// one that it began with, which, unlike a page of another site, may be looked at.
void PageReader::IfFramesAreEmpty(QWebEnginePage& page, const QObject* owner,
                                  std::function<void()> then) {
    const QString script = u"Array.from(document.getElementsByTagName('iframe')).some(frame => {"
                           "  try { return frame.contentWindow.location.href === 'about:blank' }"
                           "  catch (refusal) { return false }"
                           "})"_s;
    Ask(page, owner, script, [then = std::move(then)](bool isEmpty) {
        if (isEmpty)
            then();
    });
}

void PageReader::ScrollToFrame(QWebEnginePage& page, int index) {
    const QString script = u"document.getElementsByTagName('iframe')[%1]?.scrollIntoView()"_s;
    page.runJavaScript(script.arg(index), QWebEngineScript::ApplicationWorld);
}

void PageReader::AskForPartsAgain(QWebEnginePage& page, const QObject* owner, const QString& host,
                                  std::function<void()> then) {
    // A mark on each, which the page does not see, keeps it from being asked for twice.
    const QString script =
        u"(host => {"
        "  const isOf = address => {"
        "    try { const url = new URL(address, document.baseURI);"
        "      return url.protocol === 'http:' && url.hostname === host }"
        "    catch (nothing) { return false }"
        "  };"
        "  for (const part of document.querySelectorAll('iframe[src],frame[src]'))"
        "    if (isOf(part.src) && part.askedPlainly !== part.src) {"
        "      part.askedPlainly = part.src;"
        "      part.src = part.src"
        "    }"
        "  return [...document.querySelectorAll('img[src],script[src]')].some(e => isOf(e.src)) ||"
        "    [...document.querySelectorAll('link[rel~=stylesheet]')].some(e => isOf(e.href))"
        "})('%1')"_s;
    Ask(page, owner, script.arg(QString::fromLatin1(QUrl::toAce(host))),
        [then = std::move(then)](bool isMissing) {
            if (isMissing)
                then();
        });
}

void PageReader::AskForPasswordBox(QWebEnginePage& page, const QObject* owner,
                                   std::function<void(bool)> then) {
    const QString script =
        u"(function has(root) {"
        "  if (root.querySelector('input[type=password]')) return true;"
        "  for (const e of root.querySelectorAll('*')) {"
        "    if (e.shadowRoot && has(e.shadowRoot)) return true;"
        "    try { if (e.contentDocument && has(e.contentDocument)) return true }"
        "    catch (refusal) {}"
        "  }"
        "  return false"
        "})(document)"_s;
    Ask(page, owner, script, std::move(then));
}

} // namespace tallowmere
