#pragma once

#include <QDialog>

#include <deque>
#include <functional>

// Sits in front of the screen during a test: does what it was told to each modal dialog, in the order in which they are
// shown. One that nobody spoke of fails the test and is closed; so does one that never came, at the end.
class DialogWatcher final : public QObject
{
public:
    using Action = std::function<void(QDialog &)>;

    DialogWatcher();
    ~DialogWatcher() override;

    void expect(Action action) { m_actions.push_back(std::move(action)); }
    int shown() const { return m_shown; } // modal dialogs so far

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void act(QDialog &dialog);

    std::deque<Action> m_actions;
    int m_shown = 0;
};

// The child with that name, which must be there.
template <class Widget> Widget &child(const QWidget &parent, const char *name)
{
    auto *found = parent.findChild<Widget *>(QString::fromLatin1(name));
    Q_ASSERT_X(found != nullptr, "child", name);
    return *found;
}

DialogWatcher::Action press(const QString &buttonText); // the text with its mnemonic
DialogWatcher::Action pressKey(Qt::Key key);            // on whatever has the focus
