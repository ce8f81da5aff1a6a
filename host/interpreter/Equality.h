#pragma once

#include "host/interpreter/Objects.h"

namespace lisp {

// As `eq`: identity for lists; numbers by value, strings by their characters.
bool isSame(Value a, Value b);
// As `equal`: lists item by item, numbers within the fuzz. Without recursion along the list; nesting is limited by
// the native stack, whose end raises a LISP error through the machine's own check.
class Machine;
bool isEqual(const Machine &machine, Value a, Value b, double fuzz = 0.0);

// Compares many values with one, as `equal` without fuzz; the searching functions spend their time here.
class EqualTo
{
public:
    EqualTo(const Machine &machine, Value key)
        : m_machine(machine), m_key(key), m_isWord(key.isInteger() || key.isSymbol() || key.isNil())
    {
    }
    bool operator()(Value value) const
    {
        if (value == m_key)
            return true;
        // What fits a word equals nothing but itself, and an integer the real of the same value.
        if (m_isWord && !value.isReal())
            return false;
        return isEqual(m_machine, value, m_key);
    }

private:
    const Machine &m_machine;
    Value m_key;
    bool m_isWord;
};

} // namespace lisp
