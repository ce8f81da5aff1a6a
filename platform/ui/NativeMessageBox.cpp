#include "platform/ui/NativeMessageBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <vector>

namespace {

struct ButtonRow
{
    int id;
    const char *text;
};

constexpr ButtonRow ok = {IDOK, "OK"};
constexpr ButtonRow cancel = {IDCANCEL, "Cancel"};
constexpr ButtonRow yes = {IDYES, "&Yes"};
constexpr ButtonRow no = {IDNO, "&No"};
constexpr ButtonRow retry = {IDRETRY, "&Retry"};

// By the buttons value of the type.
const std::array<std::vector<ButtonRow>, 7> buttonSets = {{
    {ok},
    {ok, cancel},
    {{IDABORT, "&Abort"}, retry, {IDIGNORE, "&Ignore"}},
    {yes, no, cancel},
    {yes, no},
    {retry, cancel},
    {cancel, {IDTRYAGAIN, "&Try Again"}, {IDCONTINUE, "&Continue"}},
}};

// All have the same role: roles would let the desktop change the order, and Windows keeps it.
QPushButton *addButton(QMessageBox &box, const char *text)
{
    return box.addButton(QMessageBox::tr(text), QMessageBox::ActionRole);
}

} // namespace

bool NativeMessageBox::understands(UINT type)
{
    return (type & MB_TYPEMASK) < buttonSets.size();
}

NativeMessageBox::NativeMessageBox(QWidget *owner, UINT type) : QMessageBox(owner)
{
    setTextFormat(Qt::PlainText);
    setIconOf(type);
    addButtons(type);
    setModalityOf(type);
    setTextDirectionOf(type);
    setAttribute(Qt::WA_QuitOnClose, false);
    setAttribute(Qt::WA_ShowWithoutActivating, (type & MB_NOFOCUS) != 0);
    if (!canBeClosed())
        setWindowFlag(Qt::WindowCloseButtonHint, false);
    if ((type & (MB_SYSTEMMODAL | MB_TOPMOST)) != 0)
        setWindowFlag(Qt::WindowStaysOnTopHint);
    if ((type & MB_SETFOREGROUND) != 0)
        QMetaObject::invokeMethod(
            this, [this] { raise(), activateWindow(); }, Qt::QueuedConnection);
}

void NativeMessageBox::addButtons(UINT type)
{
    QList<QPushButton *> buttons;
    for (const auto &[id, text] : buttonSets[type & MB_TYPEMASK]) {
        buttons += ::addButton(*this, text);
        m_ids.insert(buttons.last(), id);
        if (id == IDCANCEL || (type & MB_TYPEMASK) == MB_OK)
            setEscapeButton(buttons.last());
    }
    if ((type & MB_HELP) != 0)
        buttons += addHelpButton();
    const auto wanted = static_cast<qsizetype>((type & MB_DEFMASK) / MB_DEFBUTTON2);
    setDefaultButton(buttons.value(wanted, buttons.first())); // a button that is not there: the first
}

// The box stays open: its own reaction to the button is taken away.
QPushButton *NativeMessageBox::addHelpButton()
{
    QPushButton *button = ::addButton(*this, "&Help");
    button->disconnect();
    connect(button, &QPushButton::clicked, this, [this] {
        if (parentWidget() != nullptr)
            QApplication::postEvent(parentWidget(), new QEvent(QEvent::HelpRequest));
    });
    return button;
}

void NativeMessageBox::setIconOf(UINT type)
{
    switch (type & MB_ICONMASK) {
    case MB_ICONERROR:
        setIcon(Critical);
        break;
    case MB_ICONQUESTION:
        setIcon(Question);
        break;
    case MB_ICONWARNING:
        setIcon(Warning);
        break;
    case MB_ICONINFORMATION:
        setIcon(Information);
        break;
    default:
        break;
    }
}

// A box without an owner blocks the whole program: a LISP program waits for the answer and must not be called again.
void NativeMessageBox::setModalityOf(UINT type)
{
    const bool ofOwnerAlone = parentWidget() != nullptr && (type & MB_TASKMODAL) == 0;
    setWindowModality(ofOwnerAlone ? Qt::WindowModal : Qt::ApplicationModal);
}

void NativeMessageBox::setTextDirectionOf(UINT type)
{
    if ((type & MB_RTLREADING) != 0)
        setLayoutDirection(Qt::RightToLeft);
    auto *label = findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    if ((type & MB_RIGHT) != 0 && label != nullptr)
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
}

int NativeMessageBox::run()
{
    exec();
    return m_ids.value(clickedButton(), 0);
}

void NativeMessageBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || canBeClosed())
        QMessageBox::keyPressEvent(event);
}

void NativeMessageBox::closeEvent(QCloseEvent *event)
{
    if (canBeClosed())
        QMessageBox::closeEvent(event);
    else
        event->ignore();
}
