#pragma once

#include <QStringList>

#include <memory>
#include <stdexcept>
#include <vector>

class OdRxModule;

// Says why a module could not be loaded.
class ModuleError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error; // UTF-8
};

// Loads run-time modules: opens the library, makes the module object through its factory and initialises it. Unloading
// goes the other way round, the module loaded last first.
class ModuleLoader
{
public:
    ModuleLoader();
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader &) = delete;
    ModuleLoader &operator=(const ModuleLoader &) = delete;

    // Raises ModuleError when the file cannot be opened, is no module, was built for another version of the SDK, or is
    // loaded already.
    void load(const QString &path);
    void unloadAll();
    QStringList paths() const; // in the order of loading

private:
    class Library;
    struct Loaded
    {
        QString path;
        std::unique_ptr<Library> library;
        OdRxModule *module;
    };

    std::vector<Loaded> m_modules;
};
