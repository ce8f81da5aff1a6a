#pragma once

#include "sdk/oda/OdAlloc.h"
#include "sdk/oda/OdRxModule.h"

#include <atomic>
#include <new>

// Completes a module class with its reference count, its library handle and its factory. One instance per process.
template <class Module> class OdRxWin32Module final : public Module
{
public:
    // Gives the instance, making it when there is none. A new instance takes the library handle over from *sysData;
    // *sysData is left alone when the instance exists already.
    static OdRxModule *createModule(void **sysData)
    {
        if (s_instance == nullptr) {
            void *memory = allocate();
            s_instance = memory != nullptr ? new (memory) OdRxWin32Module(*sysData) : nullptr;
            *sysData = nullptr;
        }
        return s_instance;
    }

    void addRef() override { ++m_references; }
    void release() override { --m_references; } // never deletes: that is deleteModule's alone
    long numRefs() const override { return m_references; }
    void *sysData() const override { return m_sysData; }

    void deleteModule() override
    {
        s_instance = nullptr;
        this->~OdRxWin32Module();
        odrxFree(this);
    }

private:
    explicit OdRxWin32Module(void *sysData) : m_sysData(sysData) {}
    ~OdRxWin32Module() = default;

    // Null when memory is short and a new-handler was told so. There is no second attempt.
    static void *allocate()
    {
        void *memory = odrxAlloc(sizeof(OdRxWin32Module));
        if (memory == nullptr) {
            const std::new_handler handler = std::get_new_handler();
            if (handler == nullptr)
                throw std::bad_alloc();
            handler();
        }
        return memory;
    }

    static inline OdRxWin32Module *s_instance = nullptr;

    std::atomic<int> m_references = 0;
    void *m_sysData;
};
