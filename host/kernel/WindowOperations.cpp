// Operations of the LISP interface that show something in a window.

#include "host/kernel/SubstituteLispHost.h"

#include "host/kernel/HostServices.h"
#include "host/kernel/TextFormat.h"
#include "lisp/LispStatus.h"
#include "lisp/TypeCode.h"

void SubstituteLispHost::progressStart(const char16_t *label)
{
    m_services.progressMeter.start(QStringView(label).toString());
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
    const FileRequest request = FileRequest::fromGetfiled(
        QStringView(title).toString(), QStringView(defaultName).toString(), QStringView(extension).toString(), flags);
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
