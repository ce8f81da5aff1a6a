#pragma once

#include "host/ui/gui/CommandHistory.h"

#include <QWidget>

#include <functional>

class QCompleter;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QStringListModel;

// The command line of the window: what was printed and typed, a prompt, and a line to type in.
class CommandPanel final : public QWidget
{
    Q_OBJECT

public:
    enum class Voice { Program, Person, Error };

    CommandPanel();

    void print(const QString &text, Voice voice = Voice::Program);
    // Begins a new line unless the last one was ended.
    void startFreshLine();
    void setPrompt(const QString &prompt);
    void setTyping(bool allowed); // while a program runs and asks for nothing it is not
    void setKeysWanted(bool wanted) { m_keysAreWanted = wanted; }
    // What the word at the cursor may become; asked for when typing begins a new word.
    void setCompletions(std::function<QStringList()> completions) { m_completions = std::move(completions); }
    void focusInput();
    QString typed() const;
    CommandHistory &history() { return m_history; }

Q_SIGNALS:
    void entered(const QString &text);
    void deletePressed();                    // in an empty line
    void keyTyped(const QString &character); // instead of going into the line, while keys are wanted

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void enter();
    void complete();
    void insertCompletion(const QString &name);
    QString wordAtCursor() const;

    QPlainTextEdit *m_output;
    QLabel *m_prompt;
    QLineEdit *m_input;
    QCompleter *m_completer;
    QStringListModel *m_names;
    CommandHistory m_history;
    bool m_keysAreWanted = false;
    std::function<QStringList()> m_completions;
};
