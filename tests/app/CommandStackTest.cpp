// The command stack: lookups by global, local and typed names, groups on top of each other, removal.
#include <gtest/gtest.h>

#include <memory>

#include "accmd.h"
#include "sim/app/CommandStack.h"

namespace {

void one() {}
void two() {}

TEST(CommandStack, LooksUpGlobalAndLocalNamesWithoutCase)
{
    sim::app::CommandStack stack;
    ASSERT_EQ(stack.addCommand(L"G", L"z0", L"jur", ACRX_CMD_USEPICKSET, one), Acad::eOk);
    AcEdCommand* cmd = stack.lookupGlobalCmd(L"Z0");
    ASSERT_NE(cmd, nullptr);
    EXPECT_EQ(cmd->functionAddr(), &one);
    EXPECT_EQ(cmd->commandFlags(), ACRX_CMD_USEPICKSET);
    EXPECT_EQ(stack.lookupLocalCmd(L"JUR"), cmd);
    // Global and local names are separate namespaces.
    EXPECT_EQ(stack.lookupLocalCmd(L"z0"), nullptr);
    EXPECT_EQ(stack.lookupGlobalCmd(L"jur"), nullptr);
}

TEST(CommandStack, TypedNameWithUnderscoreOrDotIsGlobal)
{
    sim::app::CommandStack stack;
    stack.addCommand(L"G", L"z0", L"jur", 0, one);
    EXPECT_EQ(stack.lookupTyped(L"z0"), nullptr);
    EXPECT_NE(stack.lookupTyped(L"_z0"), nullptr);
    EXPECT_NE(stack.lookupTyped(L"_.Z0"), nullptr);
    EXPECT_NE(stack.lookupTyped(L"._z0"), nullptr);
    EXPECT_NE(stack.lookupTyped(L"jur"), nullptr);
    EXPECT_NE(stack.lookupTyped(L".jur"), nullptr);  // "." alone keeps the local name
    EXPECT_EQ(stack.lookupTyped(L"__.z0"), nullptr); // at most two marks
    EXPECT_EQ(stack.lookupTyped(L"_"), nullptr);
    EXPECT_EQ(stack.lookupTyped(L""), nullptr);
}

TEST(CommandStack, DuplicateInAGroupIsRefusedButAnotherGroupShadows)
{
    sim::app::CommandStack stack;
    ASSERT_EQ(stack.addCommand(L"A", L"cmd", L"cmd", 0, one), Acad::eOk);
    AcEdCommand* ret = reinterpret_cast<AcEdCommand*>(1);
    EXPECT_EQ(stack.addCommand(L"a", L"CMD", L"other", 0, two, nullptr, -1, nullptr, &ret), Acad::eDuplicateKey);
    EXPECT_EQ(ret, nullptr);
    EXPECT_EQ(stack.addCommand(L"A", L"other", L"cmd", 0, two), Acad::eDuplicateKey);
    EXPECT_EQ(stack.lookupGlobalCmd(L"cmd")->functionAddr(), &one);

    // The group added last is searched first; popping an older group brings it back on top.
    ASSERT_EQ(stack.addCommand(L"B", L"cmd", L"cmd", 0, two), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"cmd")->functionAddr(), &two);
    EXPECT_EQ(stack.popGroupToTop(L"A"), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"cmd")->functionAddr(), &one);
    EXPECT_EQ((std::vector<std::wstring>{L"A", L"B"}), stack.groupNames());
}

TEST(CommandStack, RefusesIncompleteCommands)
{
    sim::app::CommandStack stack;
    EXPECT_EQ(stack.addCommand(L"", L"x", L"x", 0, one), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"G", nullptr, L"x", 0, one), Acad::eInvalidInput);
    EXPECT_EQ(stack.addCommand(L"G", L"x", L"x", 0, nullptr), Acad::eInvalidInput);
    EXPECT_TRUE(stack.groupNames().empty());
    // A missing local name is the global one.
    ASSERT_EQ(stack.addCommand(L"G", L"x", nullptr, 0, one), Acad::eOk);
    EXPECT_NE(stack.lookupLocalCmd(L"X"), nullptr);
}

TEST(CommandStack, RemoveGroupTakesAllItsCommandsAndUncoversOthers)
{
    sim::app::CommandStack stack;
    stack.addCommand(L"Base", L"ko", L"ko", 0, one);
    stack.addCommand(L"TOGU_utility", L"ko", L"ko", 0, two);
    stack.addCommand(L"TOGU_utility", L"mut", L"mut", 0, two);
    EXPECT_EQ(stack.removeGroup(L"togu_UTILITY"), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"mut"), nullptr);
    EXPECT_EQ(stack.lookupGlobalCmd(L"ko")->functionAddr(), &one);
    EXPECT_EQ(stack.removeGroup(L"TOGU_utility"), Acad::eKeyNotFound);

    EXPECT_EQ(stack.removeCmd(L"Base", L"nothing"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.removeCmd(L"Nothing", L"ko"), Acad::eKeyNotFound);
    EXPECT_EQ(stack.removeCmd(L"Base", L"KO"), Acad::eOk);
    EXPECT_EQ(stack.lookupGlobalCmd(L"ko"), nullptr);
}

TEST(CommandStack, IteratorWalksFromTheTopGroup)
{
    sim::app::CommandStack stack;
    stack.addCommand(L"A", L"a1", L"a1", 0, one);
    stack.addCommand(L"B", L"b1", L"b1", 0, one);
    stack.addCommand(L"B", L"b2", L"b2", 0, one);
    std::unique_ptr<AcEdCommandIterator> it(stack.iterator());
    std::wstring seen;
    for (; !it->done(); it->next())
        seen += std::wstring(it->commandGroup()) + L":" + it->command()->globalName() + L" ";
    EXPECT_EQ(seen, L"B:b1 B:b2 A:a1 ");
    EXPECT_EQ(it->command(), nullptr);
}

TEST(CommandStack, SystemRegistryHoldsTheStackAndTheLinker)
{
    AcRxObject* stack = acrxSysRegistry()->at(ACRX_COMMAND_DOCK);
    ASSERT_NE(stack, nullptr);
    EXPECT_TRUE(stack->isKindOf(AcEdCommandStack::desc()));
    EXPECT_EQ(acedRegCmds, &sim::app::commandStack());
    EXPECT_NE(acrxDynamicLinker, nullptr);
    EXPECT_EQ(acrxSysRegistry()->at(L"nothing"), nullptr);
    EXPECT_EQ(AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER)), nullptr);
}

} // namespace
