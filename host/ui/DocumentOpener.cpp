#include "host/ui/DocumentOpener.h"

#include "platform/ObservedCalls.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace {

const QString scheme = QStringLiteral("file");

} // namespace

DocumentOpener::DocumentOpener()
{
    QDesktopServices::setUrlHandler(scheme, this, "open");
}

DocumentOpener::~DocumentOpener()
{
    QDesktopServices::unsetUrlHandler(scheme);
}

void DocumentOpener::open(const QUrl &document)
{
    const std::u16string file = QDir::toNativeSeparators(document.toLocalFile()).toStdU16String();
    observedShellExecute(nullptr, windowsText(u"open"), windowsText(file.c_str()), nullptr, nullptr, SW_SHOWNORMAL);
}
