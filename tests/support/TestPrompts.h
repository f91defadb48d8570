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
        return !answers.isEmpty() && Take(answers);
    }

    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& preset) override {
        Record(prompt, title);
        presets << preset;
        return inputs.isEmpty() ? std::nullopt : Take(inputs);
    }

    std::optional<QString> InputLines(const QString& prompt, const QString& title,
                                      const QString& preset) override {
        return Input(prompt, title, preset);
    }

    std::optional<QString> SaveFile(const QString& title, const QString& suggested,
                                    const QString&) override {
        Record(suggested, title);
        return files.isEmpty() ? std::nullopt : Take(files);
    }

    std::optional<QString> OpenFile(const QString& title, const QString& folder,
                                    const QString&) override {
        Record(folder, title);
        return files.isEmpty() ? std::nullopt : Take(files);
    }

    std::optional<QString> OpenFolder(const QString& title, const QString& folder) override {
        Record(folder, title);
        return files.isEmpty() ? std::nullopt : Take(files);
    }

    bool ChoosePrinter(QPrinter&, const QString& title) override {
        Record({}, title);
        return !answers.isEmpty() && Take(answers);
    }

    std::optional<QColor> PickColor(const QColor& initial, const QString& title) override {
        Record({}, title);
        initials << initial;
        return colors.isEmpty() ? std::nullopt : Take(colors);
    }

private:
    // In Qt 6.8 a list is not to be assigned to after its front was taken away in place.
    template <typename T>
    static T Take(QList<T>& list) {
        const T first = list.first();
        list = list.mid(1);
        return first;
    }
    void Record(const QString& text, const QString& title) {
        messages << title + QStringLiteral(": ") + text;
    }
};

} // namespace tallowmere
