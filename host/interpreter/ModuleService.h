#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lisp {

// The modules of the host, for programs that ask for them or load one.
class ModuleService
{
public:
    virtual std::vector<std::u16string> loadedModules() const = 0; // file names without folder
    virtual bool loadModule(std::u16string_view path) = 0;         // false: it cannot be loaded

protected:
    ~ModuleService() = default;
};

} // namespace lisp
