#pragma once

#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

namespace tallowmere {

/// What another program reads in a PDF file.
class PdfReader {
public:
    explicit PdfReader(QString path) : m_path(std::move(path)) {}

    /// The text of its pages, a page each, with one blank where some stand.
    QStringList Pages() const {
        QStringList pages;
        for (const QString& page :
             Read("pdftotext", {QStringLiteral("-layout"), m_path, QStringLiteral("-")})
                 .split(u'\f', Qt::SkipEmptyParts))
            pages << page.simplified();
        return pages;
    }
    /// Its paper as the reader says it: "595 x 842 pts (A4)".
    QString Paper() const {
        const QString text = Read("pdfinfo", {m_path});
        return QRegularExpression(QStringLiteral("Page size: *(.+)")).match(text).captured(1);
    }

private:
    static QString Read(const char* program, const QStringList& arguments) {
        QProcess reader;
        reader.start(QString::fromLatin1(program), arguments);
        if (!reader.waitForFinished() || reader.exitCode() != 0)
            return QStringLiteral("cannot be read: ") + reader.errorString();
        return QString::fromUtf8(reader.readAllStandardOutput());
    }

    QString m_path;
};

} // namespace tallowmere
