#pragma once

#include "host/drawing/entities/ListingPlan.h"

namespace drawing {

// One group of a listing.
struct ListedItem
{
    static constexpr int Derived = -1; // not in the record

    const Item &item;
    int origin; // its place in Database::groups(), or Derived
};

// What programs see of a record: its groups in one customary form, whatever the file has. The type stands first, then
// the owner and the handle; an entity has its subclass markers, its space (67) and layout (410), and the groups that
// files leave out where they have their default. Angles (50 to 58) are radians; in a drawing they are degrees. Without
// extended data (1000 and above).
//
// Texts are not decoded; those of the record point into its bytes, so that a listing is good until the record changes.
class EntityListing
{
public:
    class Iterator
    {
    public:
        Iterator(const EntityListing &listing, qsizetype place) : m_listing(listing), m_place(place) {}
        ListedItem operator*() const { return m_listing.at(m_place); }
        Iterator &operator++()
        {
            ++m_place;
            return *this;
        }
        bool operator==(const Iterator &other) const { return m_place == other.m_place; }

    private:
        const EntityListing &m_listing;
        qsizetype m_place;
    };

    EntityListing(const Drawing &drawing, RecordId record);
    EntityListing(const EntityListing &) = delete;
    EntityListing &operator=(const EntityListing &) = delete;

    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, m_plan->order().size()}; }
    std::size_t size() const { return static_cast<std::size_t>(m_plan->order().size()); }
    // How many of the first items tell which record it is and whose, and are never changed: those before the first
    // subclass marker; type, handle and owner where there is none.
    std::size_t headSize() const { return m_plan->headSize(); }

    Group group(const ListedItem &listed) const { return m_reader.group(listed.item); } // with its value decoded

private:
    ListedItem at(qsizetype place) const
    {
        const int number = m_plan->order()[place];
        return number >= 0 ? ListedItem{m_recorded[number], number}
                           : ListedItem{m_plan->derived(number), ListedItem::Derived};
    }

    RecordedItems m_recorded;
    std::shared_ptr<const ListingPlan> m_plan;
    GroupReader m_reader;
};

// The same with all values decoded.
struct ListedGroup
{
    static constexpr int Derived = ListedItem::Derived;

    Group group;
    int origin = Derived;
};
std::vector<ListedGroup> decoded(const EntityListing &items);
std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record);

} // namespace drawing
