#pragma once

#include "app/base/Prompts.h"

#include <QStringList>

namespace tallowmere {

/// Answers every question as the test says beforehand and records what was shown.
class TestPrompts : public Prompts {
public:
    QStringList messages;   ///< "title: text" of everything shown or asked, in order
    QList<Answer> defaults; ///< of the questions
    QList<bool> answers;    ///< to questions; without one the answer is no
    QList<std::optional<QString>> inputs;
    QList<std::optional<QString>> files;
    QList<std::optional<QColor>> colors;
    QStringList presets;    ///< what stood in the input boxes
    QList<QColor> initials; ///< where the colour dialogs started

    void Message(const QString& text, const QString& title) override { Record(text, title); }

    bool Ask(const QString& text, const QString& title, Answer byDefault) override {
        Record(text, title);
        defaults << byDefault;
        return !answers.isEmpty() && answers.takeFirst();
    }

    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& preset) override {
        Record(prompt, title);
        presets << preset;
        return inputs.isEmpty() ? std::nullopt : inputs.takeFirst();
    }

    std::optional<QString> InputLines(const QString& prompt, const QString& title,
                                      const QString& preset) override {
        return Input(prompt, title, preset);
    }

    std::optional<QString> SaveFile(const QString& title, const QString& suggested,
                                    const QString&) override {
        Record(suggested, title);
        return files.isEmpty() ? std::nullopt : files.takeFirst();
    }

    std::optional<QColor> PickColor(const QColor& initial, const QString& title) override {
        Record({}, title);
        initials << initial;
        return colors.isEmpty() ? std::nullopt : colors.takeFirst();
    }

private:
    void Record(const QString& text, const QString& title) {
        messages << title + QStringLiteral(": ") + text;
    }
};

} // namespace tallowmere
