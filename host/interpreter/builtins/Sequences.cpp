// Functions that call a function for the items of lists. They call back into the machine, so what they build stays on
// the machine's stack.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Compiler.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace lisp {

namespace {

// A list that grows while user functions run.
class RootedList
{
public:
    explicit RootedList(Machine &machine) : m_machine(machine), m_list(machine, Value::nil()) {}

    void add(Value item)
    {
        const Value cell = m_machine.heap().cons(item, Value::nil());
        if (m_last)
            m_last->cdr = cell;
        else
            m_list.set(cell);
        m_last = cell.asCons();
    }
    Value list() const { return m_list.get(); }

private:
    Machine &m_machine;
    Rooted m_list;
    Cons *m_last = nullptr;
};

// The remaining items of several lists, walked in step; ends with the shortest.
class ParallelLists
{
public:
    ParallelLists(Args arguments, std::uint32_t first)
    {
        for (std::uint32_t i = first; i < arguments.count(); ++i)
            m_rests.push_back(arguments.list(i));
        m_items.resize(m_rests.size());
    }
    bool next()
    {
        for (std::size_t i = 0; i < m_rests.size(); ++i) {
            if (!m_rests[i].isCons())
                return false;
            m_items[i] = m_rests[i].asCons()->car;
            m_rests[i] = m_rests[i].asCons()->cdr;
        }
        return true;
    }
    const std::vector<Value> &items() const { return m_items; }

private:
    std::vector<Value> m_rests; // reachable through the arguments
    std::vector<Value> m_items;
};

Value mapcar(Machine &machine, Args arguments)
{
    RootedList result(machine);
    for (ParallelLists lists(arguments, 1); lists.next();)
        result.add(machine.call(arguments[0], lists.items()));
    return result.list();
}

Value every(Machine &machine, Args arguments)
{
    for (ParallelLists lists(arguments, 1); lists.next();)
        if (machine.call(arguments[0], lists.items()).isNil())
            return Value::nil();
    return machine.boolean(true);
}

Value some(Machine &machine, Args arguments)
{
    for (ParallelLists lists(arguments, 1); lists.next();)
        if (const Value result = machine.call(arguments[0], lists.items()); result.isTrue())
            return result;
    return Value::nil();
}

template <bool Keep> Value removeIf(Machine &machine, Args arguments)
{
    RootedList result(machine);
    for (Value rest = arguments.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
        const Value item = rest.asCons()->car;
        if (machine.call(arguments[0], {&item, 1}).isTrue() == Keep)
            result.add(item);
    }
    return result.list();
}

template <bool Sought> Value memberIf(Machine &machine, Args arguments)
{
    for (Value rest = arguments.list(1); rest.isCons(); rest = rest.asCons()->cdr)
        if (machine.call(arguments[0], {&rest.asCons()->car, 1}).isTrue() == Sought)
            return rest;
    return Value::nil();
}

// Asks a LISP function for the order of two items. Functions that programs sort with are often no strict order, so the
// sort that uses this must not rely on one.
class Order
{
public:
    Order(Machine &machine, Value function) : m_machine(machine), m_function(function) {}

    bool operator()(Value a, Value b) const
    {
        const Value pair[] = {a, b};
        return m_machine.call(m_function, pair).isTrue();
    }

private:
    Machine &m_machine;
    Value m_function;
};

// Merge sort, bottom up: any answers of the function give some permutation and never read out of bounds. Equal items
// keep their order.
template <class Item, class Before> std::vector<Item> mergeSorted(std::vector<Item> items, Before before)
{
    std::vector<Item> target(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, items.size());
            const std::size_t end = std::min(start + 2 * width, items.size());
            std::size_t left = start, right = middle, out = start;
            while (left < middle && right < end)
                target[out++] = before(items[right], items[left]) ? items[right++] : items[left++];
            std::copy(items.begin() + static_cast<std::ptrdiff_t>(left),
                      items.begin() + static_cast<std::ptrdiff_t>(middle),
                      target.begin() + static_cast<std::ptrdiff_t>(out));
            out += middle - left;
            std::copy(items.begin() + static_cast<std::ptrdiff_t>(right),
                      items.begin() + static_cast<std::ptrdiff_t>(end),
                      target.begin() + static_cast<std::ptrdiff_t>(out));
        }
        items.swap(target);
    }
    return items;
}

// Whether the function is the built-in < or > and all items are integers: then no call is needed to compare them.
bool isPlainIntegerOrder(Machine &machine, Value function, const std::vector<Value> &items, bool &descending)
{
    const Value meaning = function.isSymbol() ? function.asSymbol()->value : function;
    const Symbol *name = function.isSymbol() ? function.asSymbol() : nullptr;
    if (!name || !machine.builtinNamed(function) || !meaning.isObject())
        return false;
    descending = name->name == u">";
    return (descending || name->name == u"<") &&
           std::all_of(items.begin(), items.end(), [](Value item) { return item.isInteger(); });
}

std::vector<Value> sortedItems(Machine &machine, Value function, std::vector<Value> items)
{
    bool descending = false;
    if (!isPlainIntegerOrder(machine, function, items, descending))
        return mergeSorted(std::move(items), Order(machine, function));
    std::sort(items.begin(), items.end(), [descending](Value a, Value b) {
        return descending ? a.asInteger() > b.asInteger() : a.asInteger() < b.asInteger();
    });
    return items;
}

// Drops integers and symbols that repeat the item before them: programs use vl-sort to make such lists unique. Equal
// strings, reals and lists stay.
Value sort(Machine &machine, Args arguments)
{
    const std::vector<Value> items = sortedItems(machine, arguments[1], itemsOf(arguments.list(0)));
    ListBuilder result(machine.heap());
    for (std::size_t i = 0; i < items.size(); ++i)
        if (i == 0 || items[i] != items[i - 1] || !(items[i].isInteger() || items[i].isSymbol()))
            result.add(items[i]);
    return result.list();
}

// The indices of the sorted items, none dropped; of equal items the later one comes first.
Value sortIndices(Machine &machine, Args arguments)
{
    const std::vector<Value> items = itemsOf(arguments.list(0));
    std::vector<std::int32_t> indices(items.size());
    std::iota(indices.rbegin(), indices.rend(), 0);
    const Order before(machine, arguments[1]);
    indices = mergeSorted(std::move(indices), [&](std::int32_t a, std::int32_t b) {
        return before(items[static_cast<std::size_t>(a)], items[static_cast<std::size_t>(b)]);
    });
    ListBuilder result(machine.heap());
    for (const std::int32_t index : indices)
        result.add(Value::integer(index));
    return result.list();
}

constexpr BuiltinRow rows[] = {
    {"mapcar", "(mapcar FUNCTION LIST [LIST ...])", "Gives the list of the function's values for the items.", mapcar},
    {"vl-every", "(vl-every FUNCTION LIST [LIST ...])", "Gives T if the function holds for all items.", every},
    {"vl-some", "(vl-some FUNCTION LIST [LIST ...])", "Gives the first value of the function that is not nil.", some},
    {"vl-remove-if", "(vl-remove-if FUNCTION LIST)", "Gives the items for which the function is nil.", removeIf<false>},
    {"vl-remove-if-not", "(vl-remove-if-not FUNCTION LIST)", "Gives the items for which the function is not nil.",
     removeIf<true>},
    {"vl-member-if", "(vl-member-if FUNCTION LIST)", "Gives the rest of the list from the first item that fits.",
     memberIf<true>},
    {"vl-member-if-not", "(vl-member-if-not FUNCTION LIST)",
     "Gives the rest of the list from the first item that does not fit.", memberIf<false>},
    {"vl-sort", "(vl-sort LIST FUNCTION)", "Sorts by a function that says whether A comes before B; drops duplicates.",
     sort},
    {"vl-sort-i", "(vl-sort-i LIST FUNCTION)", "Gives the indices of the items in sorted order.", sortIndices},
};

} // namespace

std::span<const BuiltinRow> sequenceBuiltins()
{
    return rows;
}

} // namespace lisp
