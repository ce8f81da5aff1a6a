#include "platform/ui/NativeMessageBox.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

#include <array>
#include <vector>

namespace {

const std::array<std::vector<int>, 7> buttonSets = {{
    {IDOK},
    {IDOK, IDCANCEL},
    {IDABORT, IDRETRY, IDIGNORE},
    {IDYES, IDNO, IDCANCEL},
    {IDYES, IDNO},
    {IDRETRY, IDCANCEL},
    {IDCANCEL, IDTRYAGAIN, IDCONTINUE},
}};

QPushButton *addButton(QMessageBox &box, int id)
{
    switch (id) {
    case IDOK:
        return box.addButton(QMessageBox::Ok);
    case IDCANCEL:
        return box.addButton(QMessageBox::Cancel);
    case IDABORT:
        return box.addButton(QMessageBox::Abort);
    case IDRETRY:
        return box.addButton(QMessageBox::Retry);
    case IDIGNORE:
        return box.addButton(QMessageBox::Ignore);
    case IDYES:
        return box.addButton(QMessageBox::Yes);
    case IDNO:
        return box.addButton(QMessageBox::No);
    case IDTRYAGAIN:
        return box.addButton(QMessageBox::tr("&Try Again"), QMessageBox::AcceptRole);
    default:
        return box.addButton(QMessageBox::tr("&Continue"), QMessageBox::AcceptRole);
    }
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
    for (const int id : buttonSets[type & MB_TYPEMASK]) {
        buttons += ::addButton(*this, id);
        m_ids.insert(buttons.last(), id);
        if (id == IDCANCEL || (type & MB_TYPEMASK) == MB_OK)
            setEscapeButton(buttons.last());
    }
    if ((type & MB_HELP) != 0)
        addHelpButton();
    const auto wanted = static_cast<qsizetype>((type & MB_DEFMASK) / MB_DEFBUTTON2);
    setDefaultButton(buttons.value(wanted, buttons.first())); // a button that is not there: the first
}

// The box stays open: its own reaction to the button is taken away.
void NativeMessageBox::addHelpButton()
{
    QPushButton *button = addButton(QMessageBox::Help);
    button->disconnect();
    connect(button, &QPushButton::clicked, this, [this] {
        if (parentWidget() != nullptr)
            QApplication::postEvent(parentWidget(), new QEvent(QEvent::HelpRequest));
    });
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
