#include "ostrel/lru_cache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The values of these tests are texts; freeing one writes it down instead.
std::vector<std::string>& freed() {
    static std::vector<std::string> texts;
    return texts;
}

void writeDown(void* value) { freed().emplace_back(value == nullptr ? "(null)" : static_cast<const char*>(value)); }

void* text(const char* value) { return const_cast<char*>(value); }

class LRUCacheTest : public ::testing::Test {
protected:
    LRUCacheTest() { freed().clear(); }
};

TEST_F(LRUCacheTest, PutReturnsZero) {
    LRUCache cache(writeDown, 2);
    EXPECT_EQ(cache.put("a", text("A")), 0);
    EXPECT_EQ(cache.put("a", text("A2")), 0);
}

TEST_F(LRUCacheTest, GetReturnsTheValueOfItsKey) {
    LRUCache cache(writeDown, 10);
    cache.put("a", text("A"));
    cache.put("b", text("B"));
    EXPECT_STREQ(static_cast<const char*>(cache.get("a")), "A");
    EXPECT_STREQ(static_cast<const char*>(cache.get("b")), "B");
}

TEST_F(LRUCacheTest, GetAndPopOfAnAbsentKeyReturnNull) {
    LRUCache cache(writeDown, 10);
    cache.put("a", text("A"));
    EXPECT_EQ(cache.get("b"), nullptr);
    EXPECT_EQ(cache.pop("b"), nullptr);
}

TEST_F(LRUCacheTest, HoldsOneEntryMoreThanItsCapacity) {
    LRUCache cache(writeDown, 2);
    cache.put("a", text("A"));
    cache.put("b", text("B"));
    cache.put("c", text("C"));
    EXPECT_THAT(freed(), IsEmpty());
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("C", "B", "A"));
}

TEST_F(LRUCacheTest, PutAboveTheCapacityReleasesTheLeastRecentlyUsed) {
    LRUCache cache(writeDown, 2);
    for (const char* key : {"a", "b", "c", "d"}) cache.put(key, text(key));
    EXPECT_THAT(freed(), ElementsAre("a"));
    freed().clear();
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("d", "c", "b"));
}

TEST_F(LRUCacheTest, CapacityOfZeroKeepsOneEntry) {
    LRUCache cache(writeDown, 0);
    cache.put("a", text("A"));
    EXPECT_THAT(freed(), IsEmpty());
    cache.put("b", text("B"));
    EXPECT_THAT(freed(), ElementsAre("A"));
    EXPECT_STREQ(static_cast<const char*>(cache.get("b")), "B");
}

TEST_F(LRUCacheTest, NegativeCapacityKeepsTheNewestEntry) {
    LRUCache cache(writeDown, -5);
    cache.put("a", text("A"));
    cache.put("b", text("B"));
    EXPECT_THAT(freed(), ElementsAre("A"));
    EXPECT_STREQ(static_cast<const char*>(cache.get("b")), "B");
}

TEST_F(LRUCacheTest, GetMovesTheEntryToTheFront) {
    LRUCache cache(writeDown, 2);
    for (const char* key : {"a", "b", "c"}) cache.put(key, text(key));
    cache.get("a");
    cache.put("d", text("d"));
    EXPECT_THAT(freed(), ElementsAre("b"));
    freed().clear();
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("d", "a", "c"));
}

TEST_F(LRUCacheTest, GetOfAnAbsentKeyKeepsTheOrder) {
    LRUCache cache(writeDown, 2);
    for (const char* key : {"a", "b", "c"}) cache.put(key, text(key));
    cache.get("z");
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("c", "b", "a"));
}

TEST_F(LRUCacheTest, SecondPutOfAKeyStandsInFrontOfTheFirst) {
    LRUCache cache(writeDown, 10);
    cache.put("a", text("older"));
    cache.put("a", text("newer"));
    EXPECT_STREQ(static_cast<const char*>(cache.get("a")), "newer");
    EXPECT_STREQ(static_cast<const char*>(cache.pop("a")), "newer");
    EXPECT_STREQ(static_cast<const char*>(cache.pop("a")), "older");
    EXPECT_EQ(cache.pop("a"), nullptr);
}

TEST_F(LRUCacheTest, SecondPutOfAKeyCountsAsAnEntry) {
    LRUCache cache(writeDown, 1);
    cache.put("a", text("first"));
    cache.put("a", text("second"));
    cache.put("a", text("third"));
    EXPECT_THAT(freed(), ElementsAre("first"));
}

TEST_F(LRUCacheTest, PopHandsTheValueBackUnreleased) {
    LRUCache cache(writeDown, 10);
    cache.put("a", text("A"));
    EXPECT_STREQ(static_cast<const char*>(cache.pop("a")), "A");
    EXPECT_EQ(cache.get("a"), nullptr);
    cache.clear();
    EXPECT_THAT(freed(), IsEmpty());
}

TEST_F(LRUCacheTest, PopMakesRoom) {
    LRUCache cache(writeDown, 1);
    cache.put("a", text("a"));
    cache.put("b", text("b"));
    cache.pop("b");
    cache.put("c", text("c"));
    EXPECT_THAT(freed(), IsEmpty());
}

TEST_F(LRUCacheTest, ClearReleasesFromTheMostRecentlyUsedOn) {
    LRUCache cache(writeDown, 10);
    for (const char* key : {"a", "b", "c"}) cache.put(key, text(key));
    cache.get("b");
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("b", "c", "a"));
    EXPECT_EQ(cache.get("b"), nullptr);
}

TEST_F(LRUCacheTest, ClearedCacheIsUsedOn) {
    LRUCache cache(writeDown, 1);
    cache.put("a", text("a"));
    cache.put("b", text("b"));
    cache.clear();
    freed().clear();
    cache.put("c", text("c"));
    cache.put("d", text("d"));
    EXPECT_THAT(freed(), IsEmpty());
    EXPECT_STREQ(static_cast<const char*>(cache.get("c")), "c");
}

TEST_F(LRUCacheTest, NullValuesAreReleasedToo) {
    LRUCache cache(writeDown, 0);
    cache.put("a", nullptr);
    cache.put("b", nullptr);
    EXPECT_THAT(freed(), ElementsAre("(null)"));
    cache.clear();
    EXPECT_THAT(freed(), ElementsAre("(null)", "(null)"));
}

TEST_F(LRUCacheTest, KeysAreComparedToTheLastByte) {
    using namespace std::string_literals;
    LRUCache cache(writeDown, 10);
    cache.put("icon\0one"s, text("one"));
    cache.put("icon\0two"s, text("two"));
    cache.put("icon", text("short"));
    cache.put("Icon", text("capital"));
    cache.put("", text("empty"));
    EXPECT_STREQ(static_cast<const char*>(cache.get("icon\0one"s)), "one");
    EXPECT_STREQ(static_cast<const char*>(cache.get("icon\0two"s)), "two");
    EXPECT_STREQ(static_cast<const char*>(cache.get("icon")), "short");
    EXPECT_STREQ(static_cast<const char*>(cache.get("Icon")), "capital");
    EXPECT_STREQ(static_cast<const char*>(cache.get("")), "empty");
    EXPECT_EQ(cache.get("ico"), nullptr);
}

TEST_F(LRUCacheTest, IsNeverCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<LRUCache>);
    EXPECT_FALSE(std::is_copy_assignable_v<LRUCache>);
}

class LRUCacheLifecycleTest : public LRUCacheTest {};

TEST_F(LRUCacheLifecycleTest, DestructorReleasesEveryValue) {
    {
        LRUCache cache(writeDown, 10);
        cache.put("a", text("A"));
        cache.put("b", text("B"));
    }
    EXPECT_THAT(freed(), ElementsAre("B", "A"));
}

TEST_F(LRUCacheLifecycleTest, WithoutAFreeFunctionValuesAreDroppedUnreleased) {
    int kept = 7;
    {
        LRUCache cache(nullptr, 0);
        cache.put("a", &kept);
        cache.put("b", &kept);
        cache.clear();
        cache.put("c", &kept);
    }
    EXPECT_EQ(kept, 7);
}

// Two threads fill, ask and empty one cache; every value must come back once: popped, or through the free function.
TEST_F(LRUCacheLifecycleTest, ThreadsShareACacheWithoutLosingAValue) {
    static std::atomic<int> alive;
    alive = 0;
    const auto work = [](LRUCache& cache) {
        for (int i = 0; i < 500; ++i) {
            const std::string key = std::to_string(i % 7);
            ++alive;
            cache.put(key, new int(i));
            cache.get(std::to_string((i + 3) % 7));
            if (auto* mine = static_cast<int*>(cache.pop(key))) {
                delete mine;
                --alive;
            }
            ++alive;
            cache.put(key, new int(i));
            if (i % 100 == 50) cache.clear();
        }
    };
    {
        LRUCache cache(
            [](void* value) {
                delete static_cast<int*>(value);
                --alive;
            },
            5);
        std::thread other([&] { work(cache); });
        work(cache);
        other.join();
        EXPECT_GT(alive, 0);
    }
    EXPECT_EQ(alive, 0);
}

}  // namespace
