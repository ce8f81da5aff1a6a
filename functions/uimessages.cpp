#include "functions/uimessages.h"

#include "functions/HostWindows.h"
#include "functions/MessageBox.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "platform/ui/MessageBox.h"
#include "sdk/fx/CFxString.h"

namespace {

// \n, \r and \t alone. There is no escape for the backslash itself: of two in a row the second one may begin an escape.
QString withEscapesExpanded(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar next = text[i] == u'\\' && i + 1 < text.size() ? text[i + 1] : QChar();
        const QChar control = next == u'n' ? u'\n' : next == u'r' ? u'\r' : next == u't' ? u'\t' : QChar();
        result += control.isNull() ? text[i] : control;
        i += control.isNull() ? 0 : 1;
    }
    return result;
}

struct Message
{
    QString text;
    QString title;
    std::int16_t code = 0;
    resbuf *codeNode = nullptr; // null when title or code was refused
};

// A refused title or code leaves its default: the box is shown all the same, and its button replaces the nil.
Message readMessage(resbuf *textNode)
{
    Message message{.text = withEscapesExpanded(textOf(textNode)), .title = {}};
    resbuf *titleNode = checkArgument(TypeString, textNode->rbnext);
    if (titleNode == nullptr)
        return message;
    message.title = textOf(titleNode);
    message.codeNode = checkArgument(TypeShort, titleNode->rbnext);
    if (message.codeNode != nullptr)
        message.code = message.codeNode->resval.shortInteger;
    return message;
}

int answerWithButton(int button, resbuf *codeNode)
{
    activeLispHost()->retInt(button);
    activeLispHost()->releaseRb(codeNode);
    return StatusNormal;
}

} // namespace

int acetUiMessage()
{
    resbuf *textNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (textNode == nullptr)
        return StatusNormal;
    const Message message = readMessage(textNode);
    const CFxString text(message.text);
    const CFxString title(message.title);
    const int button = MessageBoxW(GetActiveWindow(), windowsText(text.wide_strU()), windowsText(title.wide_strU()),
                                   static_cast<UINT>(std::int32_t{message.code}));
    return answerWithButton(button, message.codeNode);
}

int acetUiMessageHtml()
{
    resbuf *textNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (textNode == nullptr)
        return StatusNormal;
    const Message message = readMessage(textNode);
    const int button = showMessageBox(activeDocumentWindow(), message.text, message.title,
                                      static_cast<std::uint16_t>(message.code), Qt::RichText);
    return answerWithButton(button, message.codeNode);
}
