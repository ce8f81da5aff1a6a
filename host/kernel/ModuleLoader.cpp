#include "host/kernel/ModuleLoader.h"

#include "sdk/oda/OdRxModule.h"

#ifdef _WIN32
#include "platform/ObservedCalls.h"
#else
#include "host/kernel/LibraryFile.h"

#include <dlfcn.h>
#endif

#include <QFileInfo>

#include <array>
#include <new>

namespace {

constexpr std::array<int, 4> SupportedVersion = {26, 8, 0, 54758};

constexpr const char *NotAWholeLibrary = ": not a library of this system, or not all of it";

} // namespace

// The operating system's side: an open library, closed again at the end.
class ModuleLoader::Library
{
public:
    explicit Library(const QString &path)
    {
#ifdef _WIN32
        m_handle = LoadLibraryW(reinterpret_cast<const wchar_t *>(path.utf16()));
        if (!m_handle && GetLastError() == ERROR_BAD_EXE_FORMAT)
            throw ModuleError(path.toStdString() + NotAWholeLibrary);
        if (!m_handle)
            throw ModuleError(path.toStdString() + ": " + qt_error_string().toStdString());
        observeCallsOf(static_cast<HMODULE>(m_handle));
#else
        if (QFileInfo(path).isFile() && QFileInfo(path).isReadable() && !isWholeLibrary(path))
            throw ModuleError(path.toStdString() + NotAWholeLibrary);
        m_handle = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
        if (!m_handle)
            throw ModuleError(dlerror()); // names the file
#endif
    }
    ~Library()
    {
#ifdef _WIN32
        FreeLibrary(static_cast<HMODULE>(m_handle));
#else
        dlclose(m_handle);
#endif
    }
    Library(const Library &) = delete;
    Library &operator=(const Library &) = delete;

    void *handle() const
    {
        return m_handle;
    }
    template <class FunctionPointer> FunctionPointer function(const char *name) const
    {
#ifdef _WIN32
        // By way of an object pointer: to the compiler the two kinds of function have nothing in common.
        return reinterpret_cast<FunctionPointer>(
            reinterpret_cast<void *>(GetProcAddress(static_cast<HMODULE>(m_handle), name)));
#else
        return reinterpret_cast<FunctionPointer>(dlsym(m_handle, name));
#endif
    }

private:
    void *m_handle;
};

ModuleLoader::ModuleLoader() = default;

ModuleLoader::~ModuleLoader()
{
    unloadAll();
}

void ModuleLoader::load(const QString &path)
{
    // The path has to hold after a change of the current directory, too: modules ask for their own file's name.
    auto library = std::make_unique<Library>(QFileInfo(path).absoluteFilePath());
    const auto createModule = library->function<OdRxModuleFactory>("odrxCreateModuleObject");
    const auto apiVersion = library->function<OdRxApiVersionQuery>("odrxGetAPIVersion");
    if (!createModule || !apiVersion)
        throw ModuleError(path.toStdString() + ": not a module");

    std::array<int, 4> version{};
    apiVersion(&version[0], &version[1], &version[2], &version[3]);
    if (version != SupportedVersion)
        throw ModuleError(path.toStdString() + ": built for another version of the SDK");

    void *handle = library->handle();
    OdRxModule *module = createModule(&handle);
    if (handle) // a new module takes the handle over; the factory of one that exists already leaves it alone
        throw ModuleError(path.toStdString() + ": is loaded already");
    if (!module)
        throw std::bad_alloc();
    module->initApp();
    m_modules.push_back({path, std::move(library), module});
}

QStringList ModuleLoader::paths() const
{
    QStringList paths;
    for (const Loaded &loaded : m_modules)
        paths.append(loaded.path);
    return paths;
}

void ModuleLoader::unloadAll()
{
    while (!m_modules.empty()) {
        m_modules.back().module->uninitApp();
        m_modules.back().module->deleteModule();
        m_modules.pop_back();
    }
}
