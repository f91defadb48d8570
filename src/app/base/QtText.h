#pragma once

#include <QString>
#include <QStringDecoder>

#include <filesystem>
#include <string>
#include <string_view>

/// The one place where text crosses between core (bytes) and the windows (QString).
namespace tallowmere {

/// Bytes that are no UTF-8 are read as Windows-1252, so that nothing is shown as damaged.
inline QString ToQt(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QString text = decoder.decode(view);
    if (!decoder.hasError())
        return text;
    static constexpr char16_t upperHalf[] = u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021"
                                            u"\u02C6\u2030\u0160\u2039\u0152\u008D\u017D"
                                            u"\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013"
                                            u"\u2014\u02DC\u2122\u0161\u203A\u0153\u009D"
                                            u"\u017E\u0178";
    text.clear();
    text.reserve(view.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte >= 0x80 && byte < 0xA0 ? QChar(upperHalf[byte - 0x80])
                                            : QChar(static_cast<char16_t>(byte));
    }
    return text;
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

/// As much of a text as is shown in one line. A damaged setting may be so long that it would take
/// seconds to lay out.
inline QString LineStart(const QString& text) {
    constexpr qsizetype kLongest = 2000;
    return text.left(kLongest);
}

/// A text as the caption of a menu item: an ampersand in it is shown and is no access key.
inline QString MenuCaption(const QString& text) {
    return LineStart(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

inline QString PathToQt(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

inline std::filesystem::path ToPath(const QString& text) {
    return text.toStdU16String();
}

} // namespace tallowmere
