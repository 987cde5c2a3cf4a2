// The vector of what few objects hold: no storage while empty, whatever is done to it, and the
// elements of a plain vector once written.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "sim/db/OnDemandVector.h"
#include "sim/db/RawTag.h"

using sim::db::OnDemandVector;
using sim::db::RawTags;

TEST(OnDemandVector, EmptyOneTakesAPointerAndNoStorageWhenReadCopiedOrWalked)
{
    static_assert(sizeof(OnDemandVector<sim::db::RawTag>) == sizeof(void*));
    OnDemandVector<sim::db::RawTag> v;
    const RawTags& seen = v;
    EXPECT_TRUE(seen.empty());
    int walked = 0;
    for (auto& t : v)
        walked += t.code;
    EXPECT_EQ(walked, 0);
    EXPECT_EQ(std::find_if(v.begin(), v.end(), [](const auto& t) { return t.code == 1; }), v.end());
    OnDemandVector<sim::db::RawTag> copy = v;
    EXPECT_TRUE(copy.empty());
    EXPECT_EQ(copy, RawTags());
}

TEST(OnDemandVector, WrittenOneHoldsItsElementsAndCopiesAreItsOwn)
{
    OnDemandVector<sim::db::RawTag> v;
    v.push_back({1001, "ACAD"});
    v.emplace_back(sim::db::RawTag{1000, "text"});
    ASSERT_EQ(v.size(), 2u);
    EXPECT_EQ(v[1].value, "text");
    OnDemandVector<sim::db::RawTag> copy;
    copy = v;
    copy.ensure().push_back({70, "1"});
    EXPECT_EQ(v.size(), 2u);
    EXPECT_EQ(copy, (RawTags{{1001, "ACAD"}, {1000, "text"}, {70, "1"}}));
    copy = RawTags();
    EXPECT_TRUE(copy.empty());
    v = {{5, "1F"}};
    EXPECT_EQ(v, (RawTags{{5, "1F"}}));
    v.clear();
    EXPECT_EQ(v.size(), 0u);
}
