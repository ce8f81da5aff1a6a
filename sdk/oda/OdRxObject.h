#pragma once

// Root of the SDK's classes. Objects live by reference counting or by rules of their own, never by plain deletion.
class OdRxObject
{
public:
    virtual void addRef() = 0;
    virtual void release() = 0;
    virtual long numRefs() const = 0;

protected:
    ~OdRxObject() = default;
};
