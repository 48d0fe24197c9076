#include "Utilities/Tools/List.h"
#include "Utilities/Tools/Map.h"
#include "Utilities/Tools/SmartPointer.h"
#include "Utilities/Tools/Tree.h"
#include "Utilities/Tools/Vector.h"
#include "core/values/Anything.h"

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

using namespace Utilities;
using Norvelian::Utilities::Exceptions::NullPointerException;
using Norvelian::Utilities::Exceptions::OutOfRangeException;
using testing::ElementsAre;

/// Runs `body` and returns the text of the exception that it must throw.
template <class Exception = OutOfRangeException, class Body> std::string Failure(Body&& body) {
    try {
        body();
    } catch (Exception const& failure) {
        return failure.what();
    }
    return "nothing thrown";
}

// ------------------------------------------------------------------ the contract of all containers

/// What each container does in its own words: adds a number behind the others, walks, fails.
template <class C> struct Words;

template <> struct Words<Vector<int>> {
    static void Add(Vector<int>& c, int number) {
        c.Resize(c.GetSize() + 1);
        c[c.GetSize() - 1] = number;
    }
    static int At(VectorIterator<int> const& it) { return it.Current(); }
    static std::string EmptyText() { return "MapIterator is not valid"; }
};
template <> struct Words<List<int>> {
    static void Add(List<int>& c, int number) { c.Append(number); }
    static int At(ListIterator<int> const& it) { return it.Current(); }
    static std::string EmptyText() {
        return "ListIterator::Current(): Can't return value because iterator is invalid";
    }
};
template <> struct Words<Map<String, int>> {
    // One bucket: the order is that of insertion.
    static void Add(Map<String, int>& c, int number) {
        if (c.GetSize() == 0) c = Map<String, int>(1);
        c[String(static_cast<long>(number))] = number;
    }
    static int At(MapIterator<String, int> const& it) { return it.GetValue(); }
    static std::string EmptyText() { return "MapIterator is not valid"; }
};

template <class C> class Container : public testing::Test {
public:
    static C Make(std::initializer_list<int> numbers) {
        C container;
        for (int const number : numbers) Words<C>::Add(container, number);
        return container;
    }
    static std::vector<int> Walk(C& container) {
        std::vector<int> numbers;
        for (auto it = container.Begin(); it.IsValid(); ++it) numbers.push_back(Words<C>::At(it));
        return numbers;
    }
};
using Containers = testing::Types<Vector<int>, List<int>, Map<String, int>>;
TYPED_TEST_SUITE(Container, Containers);

TYPED_TEST(Container, KeepsItsOrderAndItsCopiesApart) {
    auto original = this->Make({3, 1, 2});
    TypeParam copy(original), assigned = this->Make({9});
    assigned = original;
    TypeParam const& self = assigned;
    assigned = self;
    Words<TypeParam>::Add(original, 4);
    EXPECT_THAT(this->Walk(original), ElementsAre(3, 1, 2, 4));
    EXPECT_THAT(this->Walk(copy), ElementsAre(3, 1, 2));
    EXPECT_THAT(this->Walk(assigned), ElementsAre(3, 1, 2));
    TypeParam moved(std::move(copy));
    EXPECT_THAT(this->Walk(moved), ElementsAre(3, 1, 2));
    EXPECT_EQ(copy.GetSize(), 0U); // NOLINT(bugprone-use-after-move): a moved container is empty
    Words<TypeParam>::Add(copy, 5);
    EXPECT_THAT(this->Walk(copy), ElementsAre(5));
}

TYPED_TEST(Container, FailsWhereNothingIs) {
    TypeParam empty;
    auto const it = empty.Begin();
    EXPECT_FALSE(it.IsValid());
    EXPECT_EQ(Failure([&] { Words<TypeParam>::At(it); }), Words<TypeParam>::EmptyText());
    EXPECT_TRUE(this->Walk(empty).empty());
}

// ------------------------------------------------------------------ what they have of their own

TEST(Vector, IsExactlyAsLongAsAsked) {
    Vector<int> vector(2);
    vector[0] = 7;
    vector.Resize(3);
    EXPECT_THAT(std::vector<int>(vector.begin(), vector.end()), ElementsAre(7, 0, 0));
    auto it = vector.Begin(99);
    EXPECT_FALSE(it.IsValid());
    --it;
    EXPECT_TRUE(it.IsValid());
    vector.Resize(0);
    EXPECT_EQ(vector.begin(), nullptr);
    EXPECT_EQ(Failure([&] { vector[0] = 1; }), "vector index >= vector size");
}

struct ListTest : testing::Test {
    List<int> list;
    void SetUp() override {
        for (int const number : {1, 2, 3, 4}) list.Append(number);
    }
    ListIterator<int> At(int number) {
        auto it = list.Begin();
        while (it.Current() != number) ++it;
        return it;
    }
};

TEST_F(ListTest, SurvivesRemovalUnderIterators) {
    auto standing = At(2);
    auto walking = At(1);
    auto remover = At(2);
    EXPECT_EQ(list.Remove(remover), 2);
    EXPECT_EQ(remover.Current(), 3) << "moves on";
    EXPECT_FALSE(standing.IsValid());
    ++walking;
    EXPECT_EQ(walking.Current(), 3) << "passes the removed one over";
    EXPECT_EQ(Failure([&] { ++standing; }),
              "ListIterator::operator++(): Can't increment iterator because it's invalid");
    EXPECT_EQ(Failure([&] { --standing; }),
              "ListIterator::operator--(): Can't decrement iterator because it's invalid");
    EXPECT_EQ(Failure([&] { list.Remove(standing); }),
              "List::Remove(): Invalid Iterator used to remove element.");
    EXPECT_EQ(Failure([&] { list.InsertAfter(standing, 0); }),
              "List::InsertAfter() called with invalid iterator");
    EXPECT_EQ(List<int>(list).GetSize(), 3U);
    // First and last may be removed under an iterator too.
    auto first = list.Begin(), last = list.Last();
    auto removeFirst = first, removeLast = last;
    list.Remove(removeFirst);
    list.Remove(removeLast);
    EXPECT_EQ(list.Begin().Current(), 3);
    EXPECT_EQ(list.Last().Current(), 3);
    list.InsertFront(0);
    list.InsertAfter(list.Last(), 9);
    EXPECT_EQ(list.GetSize(), 3U);
}

TEST_F(ListTest, MayDieUnderAnIterator) {
    auto dying = std::make_unique<List<std::shared_ptr<int>>>();
    std::weak_ptr<int> watched;
    {
        auto const value = std::make_shared<int>(1);
        watched = value;
        dying->Append(value);
    }
    auto it = dying->Begin();
    auto const second = it;
    dying.reset();
    EXPECT_FALSE(it.IsValid());
    EXPECT_FALSE(watched.expired());
    it = {};
    EXPECT_FALSE(watched.expired()) << "the last iterator frees the node";
    const_cast<ListIterator<std::shared_ptr<int>>&>(second) = {};
    EXPECT_TRUE(watched.expired());
}

TEST(Map, FindsInsertsAndRemoves) {
    Map<String, int> map;
    Map<String, int> const& reading = map;
    std::string const unknown = "Not a valid key for 'operator[key] const' ";
    std::string const unremovable = "Not a valid key for 'Remove(const Key&)' ";
    for (int round = 0; round < 2; ++round) {
        EXPECT_FALSE(map.Find("a").IsValid());
        EXPECT_EQ(Failure([&] { static_cast<void>(reading["a"]); }), unknown);
        EXPECT_EQ(Failure([&] { map.Remove("a"); }), unremovable);
        for (long i = 0; i < 200; ++i) map[String(i)] = static_cast<int>(i);
        EXPECT_EQ(Failure([&] { static_cast<void>(reading["a"]); }), unknown);
        EXPECT_EQ(reading["199"], 199);
        Map<String, int> other = map;
        EXPECT_TRUE(other == map);
        other["0"] = 1;
        EXPECT_FALSE(other == map);
        auto it = map.Begin();
        auto const foreign = other.Begin();
        EXPECT_EQ(Failure([&] { other.Remove(it); }),
                  "Not a valid iterator position for 'Remove(MapIterator<Key, T>&)' ");
        // The iterator survives even when the last pair goes.
        int removed = 0;
        for (; it.IsValid(); ++removed) map.Remove(it);
        EXPECT_EQ(removed, 200);
        EXPECT_EQ(map.GetSize(), 0U);
    }
}

using Node = Tree<Map<String, Anything>>;

TEST(Tree, CopiesDeeplyAndGrowsUnderAWalk) {
    Node root;
    EXPECT_EQ(root.GetName().GetStdString(), " ");
    for (char const* name : {"a", "b"}) {
        auto child = MakeSmart<Node>();
        child->SetName(name);
        child->AddChild(MakeSmart<Node>());
        root.AddChild(child);
    }
    Node copy(root), assigned;
    assigned = copy;
    for (Node* node : {&copy, &assigned}) {
        EXPECT_EQ(node->GetParent(), nullptr);
        for (auto it = node->GetChildren(); it.IsValid(); ++it) {
            EXPECT_EQ(it.Current()->GetParent(), node);
            EXPECT_EQ(it.Current()->GetChildren().Current()->GetParent(), it.Current().Get());
        }
    }
    std::string walked;
    for (auto it = root.GetChildren(); it.IsValid(); ++it) {
        walked += it.Current()->GetName();
        if (!(it.Current()->GetName() == "a")) continue;
        auto added = MakeSmart<Node>();
        added->SetName("x");
        auto position = it;
        root.InsertChildAfter(position, added);
    }
    EXPECT_EQ(walked, "axb");
    auto const child = copy.GetChildren().Current();
    copy = Node();
    EXPECT_EQ(child->GetParent(), nullptr) << "a child that outlives its parent knows it";
}

// ------------------------------------------------------------------ a value within the one it replaces

struct Nested {
    List<Nested> list;
    Map<String, Nested> map;
    Vector<Nested> vector;
    int number = 0;
};

/// A 1 that holds a 2 that holds a 3, in each kind of container.
Nested Chained(int number = 1) {
    Nested nested;
    nested.number = number;
    if (number == 3) return nested;
    nested.list.Append(Chained(number + 1));
    nested.map["next"] = Chained(number + 1);
    nested.vector.Resize(1);
    nested.vector[0] = Chained(number + 1);
    return nested;
}

TEST(Containers, MayBeAssignedFromWithinThemselves) {
    for (bool const moving : {false, true}) {
        auto const assign = [moving](auto& whole, auto& part) {
            if (moving)
                whole = std::move(part);
            else
                whole = part;
        };
        Nested top = Chained();
        assign(top.list, top.list.Begin().Current().list);
        ASSERT_EQ(top.list.GetSize(), 1U);
        EXPECT_EQ(top.list.Begin().Current().number, 3);
        assign(top.map, top.map["next"].map);
        ASSERT_EQ(top.map.GetSize(), 1U);
        EXPECT_EQ(top.map["next"].number, 3);
        assign(top.vector, top.vector[0].vector);
        ASSERT_EQ(top.vector.GetSize(), 1U);
        EXPECT_EQ(top.vector[0].number, 3);

        Node root;
        root.AddChild(MakeSmart<Node>());
        Node& child = *root.GetChildren().Current();
        child["text"] = "a text that is too long to be stored in place";
        child.SetName("child");
        child.AddChild(MakeSmart<Node>());
        child.GetChildren().Current()->SetName("grandchild");
        assign(root, child);
        EXPECT_EQ(root["text"].GetString(), "a text that is too long to be stored in place");
        EXPECT_EQ(root.GetName(), "child");
        EXPECT_EQ(root.GetChildren().Current()->GetName(), "grandchild");
        EXPECT_EQ(root.GetChildren().Current()->GetParent(), &root);
    }
}

TEST(Map, AKeyThatCantBeCopiedLeavesNoEntry) {
    struct Key {
        int number = 0;
        bool* mayCopy = nullptr;
        Key() = default;
        Key(int value, bool* permission) : number(value), mayCopy(permission) {}
        Key(Key const& other) { *this = other; }
        Key& operator=(Key const& other) {
            if (other.mayCopy && !*other.mayCopy) throw std::runtime_error("no copies");
            number = other.number;
            mayCopy = other.mayCopy;
            return *this;
        }
        ~Key() = default;
        bool operator==(Key const& other) const { return number == other.number; }
        unsigned long GetHash(unsigned long) const { return 0; }
    };
    for (std::uint32_t const buckets : {0U, 1U}) {
        bool mayCopy = true;
        Map<Key, int> map(buckets);
        map[Key(1, &mayCopy)] = 1;
        mayCopy = false;
        EXPECT_THROW((map[Key(2, &mayCopy)]), std::runtime_error);
        int walked = 0;
        for (auto it = map.Begin(); it.IsValid(); ++it) ++walked;
        EXPECT_EQ(walked, 1);
        EXPECT_EQ(map.FindValue(Key()), nullptr);
    }
}

struct Base {
    virtual ~Base() { ++deaths; }
    static inline int deaths = 0;
};
struct Derived : Base {};
struct Other : Base {};

TEST(SmartPointer, SharesItsObjectAcrossConversions) {
    Base::deaths = 0;
    SmartPointer<Base> base;
    EXPECT_TRUE(SmartPointer<Base>(static_cast<Base*>(nullptr)).IsNull());
    {
        auto const derived = MakeSmart<Derived>();
        base = derived;
        EXPECT_EQ(SmartPointer<Derived>(base).Get(), derived.Get());
    }
    SmartPointer<Other> failed(base);
    EXPECT_TRUE(failed.IsNull());
    base = nullptr;
    EXPECT_EQ(Base::deaths, 0) << "a failed downcast keeps the object alive";
    EXPECT_EQ(
        Failure<NullPointerException>([&] { static_cast<void>(*failed); }).find("accessed null pointer ("),
        0U);
    try {
        static_cast<void>(failed.operator->());
    } catch (NullPointerException const& failure) {
        EXPECT_THAT(failure.GetTrace(),
                    ElementsAre("SmartPointer<T>::operator->(): Utilities/Tools/SmartPointer:227",
                                "SmartPointer<T>::operator->(): Utilities/Tools/SmartPointer:232"));
    }
    failed = {};
    EXPECT_EQ(Base::deaths, 1);
}

TEST(List, AnElementThatDiesMayLookAtItsList) {
    struct Looker {
        List<Looker>* list = nullptr;
        int* seen = nullptr;
        ~Looker() {
            if (!list) return;
            for (auto it = list->Begin(); it.IsValid(); ++it) ++*seen;
        }
    };
    int seen = 0;
    List<Looker> list;
    for (int i = 0; i < 3; ++i) {
        Looker& looker = list.Append().Current();
        looker.list = &list;
        looker.seen = &seen;
    }
    list.Clear();
    EXPECT_EQ(seen, 0) << "a list that is cleared is empty before the first element is destroyed";
}

} // namespace
