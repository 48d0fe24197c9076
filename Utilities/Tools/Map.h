#pragma once

#include "Utilities/Tools/List.h"
#include "Utilities/Tools/Pair.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace Utilities {

template <class Key, class T> class MapIterator;

namespace Detail {

/// The chains of a hash table, of which most hold nothing: a bit for each of them, and in their order those
/// that are in use. A map of five keys takes a third of the memory of one with a pointer for each of its 53
/// chains, and such a map is made for each described element.
template <class Chain> class SparseChains {
public:
    SparseChains() = default;
    SparseChains(SparseChains const& other) : groupCount_(other.groupCount_) {
        if (groupCount_ == 0) return;
        groups_ = std::make_unique<Group[]>(groupCount_);
        std::copy(other.groups_.get(), other.groups_.get() + groupCount_, groups_.get());
    }
    SparseChains(SparseChains&& other) noexcept
        : groups_(std::move(other.groups_)), groupCount_(std::exchange(other.groupCount_, 0)) {}
    SparseChains& operator=(SparseChains other) noexcept {
        std::swap(groups_, other.groups_);
        std::swap(groupCount_, other.groupCount_);
        return *this;
    }
    ~SparseChains() = default;

    /// Null for one that isn't in use.
    Chain* Find(std::uint32_t number) const {
        if (number >= groupCount_ * groupSize) return nullptr;
        Group& group = groups_[number / groupSize];
        return (group.used & BitOf(number)) != 0 ? &group.chains[PlaceOf(group, number)] : nullptr;
    }
    /// The chain, in use from now on, of a table of `count` of them. Others may move to another place in
    /// memory, but not what is in them.
    Chain& Enter(std::uint32_t number, std::uint32_t count) {
        if (groupCount_ == 0) {
            groups_ = std::make_unique<Group[]>((count - 1) / groupSize + 1);
            groupCount_ = (count - 1) / groupSize + 1;
        }
        Group& group = groups_[number / groupSize];
        auto const place = static_cast<std::ptrdiff_t>(PlaceOf(group, number));
        if ((group.used & BitOf(number)) == 0) {
            group.chains.emplace(group.chains.begin() + place);
            group.used |= BitOf(number);
        }
        return group.chains[static_cast<std::size_t>(place)];
    }

private:
    struct Group {
        std::uint64_t used = 0;
        std::vector<Chain> chains;
    };
    static constexpr std::uint32_t groupSize = 64;

    static std::uint64_t BitOf(std::uint32_t number) { return std::uint64_t{1} << number % groupSize; }
    static std::size_t PlaceOf(Group const& group, std::uint32_t number) {
        return static_cast<std::size_t>(std::popcount(group.used & (BitOf(number) - 1)));
    }

    std::unique_ptr<Group[]> groups_;
    std::uint32_t groupCount_ = 0;
};

} // namespace Detail

/// A hash table with 53 chains that never grows.
///
/// It is made for the few dozen keys of a description node or a record: an empty map owns nothing, and
/// the order of iteration (by chain, within a chain by insertion) is stable between insertions. Keys
/// need `operator==` and `GetHash(bucketCount)`. The const `operator[]` throws `OutOfRangeException`
/// for a key that isn't there: that is the system's way to read an optional attribute, and so the
/// exception's type is an interface. A value may be removed while an iterator is on it.
template <class Key, class T> class Map {
    using Entry = Pair<Key, T>;
    using Chain = List<Entry>;
    using Chains = Detail::SparseChains<Chain>;

public:
    Map() = default;
    /// Of one chain at least.
    explicit Map(std::uint32_t bucketCount) : bucketCount_(std::max<std::uint32_t>(bucketCount, 1)) {}
    Map(Map const& other) = default;
    Map(Map&& other) noexcept
        : count_(std::exchange(other.count_, 0)), chains_(std::move(other.chains_)),
          bucketCount_(other.bucketCount_) {}
    Map& operator=(Map const& other) {
        if (this != &other) *this = Map(other);
        return *this;
    }
    /// What is assigned may be within a value of this map, so the former values are destroyed last.
    Map& operator=(Map&& other) noexcept {
        Map taken(std::move(other));
        std::swap(count_, taken.count_);
        std::swap(chains_, taken.chains_);
        std::swap(bucketCount_, taken.bucketCount_);
        return *this;
    }
    virtual ~Map() = default;

    /// The key's value, entered as a default value if the key is new.
    T& operator[](Key const& key) {
        Chain& chain = chains_.Enter(BucketOf(key), bucketCount_);
        if (Entry* const found = chain.FindIf(HasKey(key))) return found->second;
        Entry& added = chain.Emplace(key, T()).Current();
        ++count_;
        return added.second;
    }

    T const& operator[](Key const& key) const {
        if (T const* const found = FindValue(key)) return *found;
        throw Norvelian::Utilities::Exceptions::OutOfRangeException(
            "Not a valid key for 'operator[key] const' ");
    }

    /// The key's value, null for a key that isn't there: a look where absence is no surprise.
    T const* FindValue(Key const& key) const {
        Chain const* const chain = count_ != 0 ? chains_.Find(BucketOf(key)) : nullptr;
        Entry const* const found = chain ? chain->FindIf(HasKey(key)) : nullptr;
        return found ? &found->second : nullptr;
    }

    /// A position on the pair, or an invalid one.
    MapIterator<Key, T> Find(Key const& key) { return FindIn<MapIterator<Key, T>>(*this, key); }
    MapIterator<Key, T const> Find(Key const& key) const {
        return FindIn<MapIterator<Key, T const>>(*this, key);
    }

    /// Takes the pair out and returns its value; throws `OutOfRangeException` for an unknown key.
    T Remove(Key const& key) {
        if (auto position = Find(key); position.IsValid()) return RemoveAt(position.bucket_, position.entry_);
        throw Norvelian::Utilities::Exceptions::OutOfRangeException(
            "Not a valid key for 'Remove(const Key&)' ");
    }

    /// The same at an iterator's position, which moves on to the following pair.
    T Remove(MapIterator<Key, T>& position) {
        if (!position.IsValid() || position.map_ != this)
            throw Norvelian::Utilities::Exceptions::OutOfRangeException(
                "Not a valid iterator position for 'Remove(MapIterator<Key, T>&)' ");
        std::uint32_t const bucket = position.bucket_;
        auto it = position.entry_;
        ++position;
        return RemoveAt(bucket, it);
    }

    MapIterator<Key, T> Begin() { return FirstIn<MapIterator<Key, T>>(*this); }
    MapIterator<Key, T const> Begin() const { return FirstIn<MapIterator<Key, T const>>(*this); }

    std::uint32_t GetSize() const { return count_; }

    /// Same keys with equal values, whatever the order.
    bool operator==(Map const& other) const {
        if (count_ != other.count_) return false;
        for (auto it = Begin(); it.IsValid(); ++it) {
            T const* const match = other.FindValue(it.GetKey());
            if (!match || !(*match == it.GetValue())) return false;
        }
        return true;
    }

private:
    template <class, class> friend class MapIterator;

    std::uint32_t BucketOf(Key const& key) const {
        return static_cast<std::uint32_t>(key.GetHash(bucketCount_));
    }

    static auto HasKey(Key const& key) {
        return [&key](Entry const& entry) { return entry.first == key; };
    }

    template <class Iterator, class Self> static Iterator FindIn(Self& self, Key const& key) {
        if (self.count_ == 0) return {};
        std::uint32_t const bucket = self.BucketOf(key);
        for (auto it = self.BeginOf(bucket); it.IsValid(); ++it)
            if (it.Current().first == key) return Iterator(self, bucket, std::move(it));
        return {};
    }
    template <class Iterator, class Self> static Iterator FirstIn(Self& self) {
        if (self.count_ == 0) return {};
        Iterator it(self, 0, self.BeginOf(0));
        it.SkipEmptyChains();
        return it;
    }
    T RemoveAt(std::uint32_t bucket, ListIterator<Entry>& it) {
        T value = chains_.Find(bucket)->Remove(it).second;
        if (--count_ == 0) chains_ = {};
        return value;
    }
    ListIterator<Entry> BeginOf(std::uint32_t bucket) {
        Chain* const chain = chains_.Find(bucket);
        return chain ? chain->Begin() : ListIterator<Entry>();
    }
    ListIterator<Entry const> BeginOf(std::uint32_t bucket) const {
        Chain const* const chain = chains_.Find(bucket);
        return chain ? chain->Begin() : ListIterator<Entry const>();
    }

    std::uint32_t count_ = 0;
    Chains chains_;
    std::uint32_t bucketCount_ = 53;
};

/// A position in a `Map`; `T` is const for a const map.
template <class Key, class T> class MapIterator {
    using Value = std::remove_const_t<T>;
    using Container = std::conditional_t<std::is_const_v<T>, Map<Key, Value> const, Map<Key, Value>>;
    using Entry = std::conditional_t<std::is_const_v<T>, Pair<Key, Value> const, Pair<Key, Value>>;

public:
    MapIterator() = default;

    bool IsValid() const { return entry_.IsValid(); }
    MapIterator& operator++() {
        ++entry_;
        SkipEmptyChains();
        return *this;
    }
    /// Both throw `OutOfRangeException` "MapIterator is not valid".
    Key const& GetKey() const { return Checked().first; }
    T& GetValue() const { return Checked().second; }

private:
    friend class Map<Key, Value>;

    MapIterator(Container& map, std::uint32_t bucket, ListIterator<Entry> entry)
        : bucket_(bucket), entry_(std::move(entry)), map_(&map) {}

    Entry& Checked() const {
        if (!IsValid())
            throw Norvelian::Utilities::Exceptions::OutOfRangeException("MapIterator is not valid");
        return entry_.Current();
    }
    void SkipEmptyChains() {
        while (!entry_.IsValid() && bucket_ + 1 < map_->bucketCount_) entry_ = map_->BeginOf(++bucket_);
    }

    std::uint32_t bucket_ = 0;
    ListIterator<Entry> entry_;
    Container* map_ = nullptr;
};

} // namespace Utilities
