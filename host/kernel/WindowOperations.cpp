// Operations of the LISP interface that show something in a window.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/HostServices.h"
#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

namespace {

QString textOrEmpty(const char16_t *text)
{
    return text ? QString::fromUtf16(text) : QString();
}

} // namespace

void SubstituteLispHost::progressStart(const char16_t *label)
{
    m_services.progressMeter.start(textOrEmpty(label));
}

void SubstituteLispHost::progressEnd()
{
    m_services.progressMeter.end();
}

int SubstituteLispHost::progressSet(int position)
{
    return m_services.progressMeter.set(position) ? 1 : 0;
}

int SubstituteLispHost::getFileDialog(const char16_t *title, const char16_t *defaultName, const char16_t *extension,
                                      int flags, resbuf *result)
{
    const FileRequest request =
        FileRequest::fromGetfiled(textOrEmpty(title), textOrEmpty(defaultName), textOrEmpty(extension), flags);
    const std::optional<QString> path = m_services.userInterface->chooseFile(request);
    if (!path || !result || !m_frame)
        return StatusError;
    // A node of the running call owns the text and takes it along when the call ends.
    resbuf *owner = m_pool.allocate(*m_frame, TypeString);
    owner->resval.string = duplicateWide(path->toStdU16String());
    result->restype = TypeString;
    result->resval.string = owner->resval.string;
    return StatusNormal;
}
