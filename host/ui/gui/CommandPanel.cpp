#include "host/ui/gui/CommandPanel.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QEvent>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextBlock>
#include <QVBoxLayout>

namespace {

constexpr int KeptLines = 20000;
constexpr int VoiceProperty = QTextFormat::UserProperty; // of a printed text
constexpr int LeastWord = 2;                             // letters, before names are offered

QColor colorOf(CommandPanel::Voice voice, const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    switch (voice) {
    case CommandPanel::Voice::Program:
        return palette.color(QPalette::Text);
    case CommandPanel::Voice::Person:
        return isDark ? QColor(0x7F, 0xB8, 0xFF) : QColor(0x0B, 0x4F, 0xA8);
    case CommandPanel::Voice::Error:
        return isDark ? QColor(0xFF, 0x8A, 0x80) : QColor(0xB0, 0x1E, 0x1E);
    }
    return {};
}

bool belongsToName(QChar character)
{
    return !character.isSpace() && !QStringView(u"()'\";").contains(character);
}

} // namespace

CommandPanel::CommandPanel()
    : m_output(new QPlainTextEdit), m_prompt(new QLabel), m_input(new QLineEdit), m_completer(new QCompleter(this)),
      m_names(new QStringListModel(this))
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_output, m_prompt, m_input})
        widget->setFont(font);
    m_output->setObjectName(QStringLiteral("commandOutput"));
    m_output->setReadOnly(true);
    m_output->setMaximumBlockCount(KeptLines);
    m_output->setFocusPolicy(Qt::ClickFocus);
    m_input->setObjectName(QStringLiteral("commandInput"));
    m_input->setFrame(false);
    m_input->installEventFilter(this);
    m_prompt->setObjectName(QStringLiteral("commandPrompt"));
    m_prompt->setTextFormat(Qt::PlainText); // programs write "<A>" and "&" in their prompts, and mean them

    m_completer->setModel(m_names);
    m_completer->setCaseSensitivity(Qt::CaseInsensitive);
    m_completer->setWidget(m_input);
    connect(m_completer, qOverload<const QString &>(&QCompleter::activated), this, &CommandPanel::insertCompletion);
    connect(m_input, &QLineEdit::returnPressed, this, &CommandPanel::enter);
    connect(m_input, &QLineEdit::textEdited, this, &CommandPanel::complete);

    auto *line = new QHBoxLayout;
    line->addWidget(m_prompt);
    line->addWidget(m_input);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_output);
    layout->addLayout(line);
}

void CommandPanel::print(const QString &text, Voice voice)
{
    QScrollBar *bar = m_output->verticalScrollBar();
    const bool atEnd = bar->value() == bar->maximum();
    QTextCursor cursor(m_output->document());
    cursor.movePosition(QTextCursor::End);
    QTextCharFormat format;
    format.setProperty(VoiceProperty, static_cast<int>(voice));
    format.setForeground(colorOf(voice, palette()));
    cursor.insertText(text, format);
    if (atEnd)
        bar->setValue(bar->maximum());
}

void CommandPanel::startFreshLine()
{
    if (m_output->document()->lastBlock().length() > 1) // the block's own end counts
        print(QStringLiteral("\n"));
}

void CommandPanel::setPrompt(const QString &prompt)
{
    m_prompt->setText(prompt);
}

void CommandPanel::setTyping(bool allowed)
{
    m_input->setReadOnly(!allowed);
    m_prompt->setVisible(allowed);
}

void CommandPanel::focusInput()
{
    m_input->setFocus();
}

QString CommandPanel::typed() const
{
    return m_input->text();
}

void CommandPanel::enter()
{
    // With a name chosen in the list Enter takes that name: the line hears of the key before the list does.
    const QAbstractItemView *list = m_completer->popup();
    if (m_input->isReadOnly() || (list->isVisible() && list->currentIndex().isValid()))
        return;
    const QString text = m_input->text();
    m_input->clear();
    m_completer->popup()->hide();
    m_history.add(text);
    Q_EMIT entered(text);
}

QString CommandPanel::wordAtCursor() const
{
    const QString before = m_input->text().left(m_input->cursorPosition());
    qsizetype start = before.size();
    while (start > 0 && belongsToName(before[start - 1]))
        --start;
    return before.mid(start);
}

void CommandPanel::complete()
{
    const QString word = wordAtCursor();
    if (word.size() < LeastWord || !m_completions) {
        m_completer->popup()->hide();
        return;
    }
    if (word.size() == LeastWord || m_names->rowCount() == 0)
        m_names->setStringList(m_completions());
    m_completer->setCompletionPrefix(word);
    const bool isComplete =
        m_completer->completionCount() == 1 && m_completer->currentCompletion().compare(word, Qt::CaseInsensitive) == 0;
    if (isComplete || m_completer->completionCount() == 0)
        m_completer->popup()->hide();
    else
        m_completer->complete();
}

void CommandPanel::insertCompletion(const QString &name)
{
    const int cursor = m_input->cursorPosition();
    const int length = static_cast<int>(wordAtCursor().size());
    const QSignalBlocker quiet(m_input); // it is not typed: nothing more is offered
    m_input->setSelection(cursor - length, length);
    m_input->insert(name);
}

bool CommandPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_input || event->type() != QEvent::KeyPress || m_completer->popup()->isVisible())
        return QWidget::eventFilter(watched, event);
    const auto *press = static_cast<QKeyEvent *>(event);
    if (m_keysAreWanted && !press->text().isEmpty()) {
        Q_EMIT keyTyped(press->text());
        return true;
    }
    switch (press->key()) {
    case Qt::Key_Up:
        m_input->setText(m_history.older(m_input->text()));
        return true;
    case Qt::Key_Down:
        m_input->setText(m_history.newer(m_input->text()));
        return true;
    case Qt::Key_Delete:
        if (m_input->text().isEmpty())
            Q_EMIT deletePressed();
        return QWidget::eventFilter(watched, event);
    default:
        return QWidget::eventFilter(watched, event);
    }
}

// After a change between light and dark what was printed gets the new colours.
void CommandPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    QList<QTextFragment> parts; // first, for a new format moves what stands behind it
    for (QTextBlock block = m_output->document()->begin(); block.isValid(); block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part)
            parts.append(part.fragment());
    QTextCursor cursor(m_output->document());
    for (const QTextFragment &part : parts) {
        QTextCharFormat format = part.charFormat();
        format.setForeground(colorOf(static_cast<Voice>(format.intProperty(VoiceProperty)), palette()));
        cursor.setPosition(part.position());
        cursor.setPosition(part.position() + part.length(), QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
}
