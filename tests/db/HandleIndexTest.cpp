// The database's index of objects by handle: dense handles in the flat table, far ones in the map,
// moving between the two as the table grows, walked in handle order, owning what it holds.
#include <gtest/gtest.h>

#include <vector>

#include "dbents.h"
#include "sim/db/HandleIndex.h"

namespace {

std::vector<Adesk::UInt64> handles(const sim::db::HandleIndex& index)
{
    std::vector<Adesk::UInt64> out;
    index.forEach([&](Adesk::UInt64 h, AcDbObject*) { out.push_back(h); });
    return out;
}

} // namespace

TEST(HandleIndex, DenseAndFarHandlesAreFoundAndWalkedInOrder)
{
    sim::db::HandleIndex index;
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(index.top(), 0u);
    const Adesk::UInt64 far = 0xFFFFFFFFFFFFull; // far above what the flat table may cover
    auto* a = new AcDbLine;
    auto* b = new AcDbLine;
    auto* c = new AcDbLine;
    index.insert(far, a);
    index.insert(0x2A, b);
    index.insert(0x10, c);
    EXPECT_EQ(index.find(far), a);
    EXPECT_EQ(index.find(0x2A), b);
    EXPECT_EQ(index.find(0x10), c);
    EXPECT_EQ(index.find(0x11), nullptr);
    EXPECT_EQ(index.find(far - 1), nullptr);
    EXPECT_EQ(index.size(), 3u);
    EXPECT_EQ(index.top(), far);
    EXPECT_EQ(handles(index), (std::vector<Adesk::UInt64>{0x10, 0x2A, far}));

    EXPECT_EQ(index.release(far), a);
    delete a;
    EXPECT_EQ(index.release(far), nullptr);
    EXPECT_EQ(index.top(), 0x2Au);
    EXPECT_EQ(index.release(0x2A), b);
    delete b;
    EXPECT_EQ(index.top(), 0x10u);
    EXPECT_EQ(index.size(), 1u);
}

TEST(HandleIndex, HandlesAboveTheTableMoveIntoItWhenItGrowsPastThem)
{
    sim::db::HandleIndex index;
    // Beyond what one object allows the table to cover, within what many do.
    const Adesk::UInt64 high = 200000;
    auto* first = new AcDbLine;
    index.insert(high, first);
    for (Adesk::UInt64 h = 1; h <= 120000; ++h)
        index.insert(h, new AcDbLine);
    EXPECT_EQ(index.find(high), first);
    index.insert(high + 1, new AcDbLine); // the table grows over the first one
    EXPECT_EQ(index.find(high), first);
    EXPECT_EQ(index.size(), 120002u);
    std::vector<Adesk::UInt64> order = handles(index);
    ASSERT_EQ(order.size(), 120002u);
    EXPECT_EQ(order[order.size() - 2], high);
    EXPECT_EQ(order.back(), high + 1);
    EXPECT_EQ(index.top(), high + 1);
    delete index.release(high + 1);
    EXPECT_EQ(index.top(), high);
    index.clear();
    EXPECT_TRUE(index.empty());
    EXPECT_EQ(index.find(high), nullptr);
    EXPECT_TRUE(handles(index).empty());
}

TEST(HandleIndex, AWalkMayAddAndRemoveObjects)
{
    sim::db::HandleIndex index;
    const Adesk::UInt64 far = 1ull << 40;
    index.insert(1, new AcDbLine);
    index.insert(far, new AcDbLine);
    index.insert(far + 2, new AcDbLine);
    std::vector<Adesk::UInt64> seen;
    index.forEach([&](Adesk::UInt64 h, AcDbObject*) {
        seen.push_back(h);
        if (h == far) {
            delete index.release(far + 2);
            index.insert(far + 1, new AcDbLine);
        }
    });
    EXPECT_EQ(seen, (std::vector<Adesk::UInt64>{1, far, far + 1}));
}
