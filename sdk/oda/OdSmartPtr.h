#pragma once

#include "sdk/oda/OdError.h"

#include <utility>

// Keeps an object of the drawings SDK alive. Taking an object for one of another class raises OdError; null stays null.
template <class T> class OdSmartPtr
{
public:
    OdSmartPtr() = default;
    explicit OdSmartPtr(T *object) : m_object(object)
    {
        if (m_object)
            m_object->addRef();
    }
    OdSmartPtr(const OdSmartPtr &other) : OdSmartPtr(other.m_object) {}
    OdSmartPtr(OdSmartPtr &&other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class Other> OdSmartPtr(const OdSmartPtr<Other> &other) : OdSmartPtr(dynamic_cast<T *>(other.get()))
    {
        if (other.get() && !m_object)
            throw OdError(eNotThatKindOfClass);
    }
    ~OdSmartPtr()
    {
        if (m_object)
            m_object->release();
    }
    OdSmartPtr &operator=(OdSmartPtr other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    T *get() const { return m_object; }
    T *operator->() const { return m_object; }
    bool isNull() const { return m_object == nullptr; }
    // Closes the object.
    void release() { *this = OdSmartPtr(); }

private:
    T *m_object = nullptr;
};
