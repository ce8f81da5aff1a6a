#include "host/interpreter/files/FileNames.h"

#include <algorithm>

namespace lisp {

namespace {

constexpr std::size_t None = std::u16string_view::npos;

// Where the last part begins, behind the last separator or a drive letter.
std::size_t lastPartStart(std::u16string_view name)
{
    const std::size_t separator = name.find_last_of(u"/\\");
    if (separator != None)
        return separator + 1;
    return name.size() >= 2 && name[1] == u':' ? 2 : 0;
}

// Where the extension begins. "." and ".." are folders and have none.
std::size_t extensionStart(std::u16string_view lastPart)
{
    return lastPart == u"." || lastPart == u".." ? None : lastPart.rfind(u'.');
}

bool isRoot(std::u16string_view directory)
{
    return directory.size() == 1 || (directory.size() == 3 && directory[1] == u':');
}

} // namespace

QString filePath(std::u16string_view name)
{
    QString path = QStringView(name.data(), static_cast<qsizetype>(name.size())).toString();
    return path.replace(u'\\', u'/');
}

std::u16string fileNameBase(std::u16string_view name)
{
    const std::u16string_view lastPart = name.substr(lastPartStart(name));
    return std::u16string(lastPart.substr(0, extensionStart(lastPart)));
}

std::u16string fileNameDirectory(std::u16string_view name)
{
    const std::u16string_view directory = name.substr(0, lastPartStart(name));
    const bool endsWithSeparator = directory.ends_with(u'/') || directory.ends_with(u'\\');
    return std::u16string(endsWithSeparator && !isRoot(directory) ? directory.substr(0, directory.size() - 1)
                                                                  : directory);
}

std::optional<std::u16string> fileNameExtension(std::u16string_view name)
{
    const std::u16string_view lastPart = name.substr(lastPartStart(name));
    const std::size_t start = extensionStart(lastPart);
    if (start == None)
        return std::nullopt;
    return std::u16string(lastPart.substr(start));
}

} // namespace lisp
