// Loading applications as the host does: the order of the messages, the documents each drawing
// message is sent in, the lock, and AutoLISP functions defined per document and called through
// kInvkSubrMsg.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "acedlisp.h"
#include "acrxEntryPoint.h"
#include "sim/app/CommandStack.h"
#include "sim/app/Documents.h"
#include "sim/app/LispCall.h"
#include "sim/app/LispFunctions.h"
#include "sim/app/Loader.h"
#include "sim/core/Session.h"

namespace {

using sim::app::dynamicLinker;

/// Two documents, the first current.
class TwoDocuments : public sim::app::DocumentList {
public:
    int a = 0, b = 0;
    void* cur = &a;
    std::vector<void*> documents() const override { return {const_cast<int*>(&a), const_cast<int*>(&b)}; }
    void* current() const override { return cur; }
    bool activate(void* doc) override
    {
        if (doc != &a && doc != &b)
            return false;
        cur = doc;
        return true;
    }
};

TwoDocuments* g_docs = nullptr;

struct Received {
    AcRx::AppMsgCode msg;
    void* pkt;
    void* current; ///< the current document while the message was handled
};
std::vector<Received> g_log;
bool g_unlock = true;
AcRx::AppRetCode g_initAnswer = AcRx::kRetOK;

AcRx::AppRetCode recordingEntry(AcRx::AppMsgCode msg, void* pkt)
{
    g_log.push_back({msg, pkt, sim::app::currentDocument()});
    if (msg == AcRx::kInitAppMsg && g_unlock)
        acrxDynamicLinker->unlockApplication(pkt);
    return msg == AcRx::kInitAppMsg ? g_initAnswer : AcRx::kRetOK;
}

class Loader : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_log.clear();
        g_unlock = true;
        g_initAnswer = AcRx::kRetOK;
        g_docs = &docs;
    }
    void TearDown() override
    {
        dynamicLinker().unloadAll();
        g_docs = nullptr;
    }
    TwoDocuments docs;
    sim::app::ScopedDocumentList scope{docs};
};

TEST_F(Loader, SendsInitThenEachDocumentAndTheReverseAtUnload)
{
    docs.cur = &docs.b;
    sim::app::Application* app = dynamicLinker().load(L"Rec", recordingEntry);
    ASSERT_NE(app, nullptr);
    EXPECT_FALSE(dynamicLinker().isApplicationLocked(L"rec"));
    ASSERT_TRUE(dynamicLinker().unload(*app));

    ASSERT_EQ(g_log.size(), 6u);
    EXPECT_EQ(g_log[0].msg, AcRx::kInitAppMsg);
    EXPECT_EQ(g_log[0].pkt, app); // the application id the linker's calls take
    EXPECT_EQ(g_log[1].msg, AcRx::kLoadDwgMsg);
    EXPECT_EQ(g_log[1].current, &docs.a); // each drawing message is handled with its document current
    EXPECT_EQ(g_log[2].msg, AcRx::kLoadDwgMsg);
    EXPECT_EQ(g_log[2].current, &docs.b);
    EXPECT_EQ(g_log[3].msg, AcRx::kUnloadDwgMsg);
    EXPECT_EQ(g_log[4].msg, AcRx::kUnloadDwgMsg);
    EXPECT_EQ(g_log[5].msg, AcRx::kUnloadAppMsg);
    EXPECT_EQ(docs.cur, &docs.b); // the document that was current stays current
    EXPECT_EQ(dynamicLinker().find(std::wstring_view(L"Rec")), nullptr);
}

TEST_F(Loader, LockedApplicationStaysUnlessTheHostQuits)
{
    g_unlock = false;
    sim::app::Application* app = dynamicLinker().load(L"Locked", recordingEntry);
    ASSERT_NE(app, nullptr);
    EXPECT_TRUE(dynamicLinker().isApplicationLocked(L"Locked"));
    g_log.clear();
    EXPECT_FALSE(dynamicLinker().unload(*app));
    EXPECT_TRUE(g_log.empty());
    EXPECT_TRUE(dynamicLinker().unload(*app, true));
    EXPECT_EQ(g_log.back().msg, AcRx::kUnloadAppMsg);
}

TEST_F(Loader, RefusedInitDropsTheApplicationWithoutFurtherMessages)
{
    g_initAnswer = AcRx::kRetError;
    std::wstring error;
    EXPECT_EQ(dynamicLinker().load(L"Refuses", recordingEntry, &error), nullptr);
    EXPECT_NE(error.find(L"Refuses"), std::wstring::npos);
    ASSERT_EQ(g_log.size(), 1u);
    EXPECT_TRUE(dynamicLinker().applications().empty());

    g_initAnswer = AcRx::kRetOK;
    ASSERT_NE(dynamicLinker().load(L"Once", recordingEntry), nullptr);
    EXPECT_EQ(dynamicLinker().load(L"ONCE", recordingEntry, &error), nullptr);
}

TEST_F(Loader, StandardApplicationClassUnlocksAndRegistersMdiAware)
{
    struct App : AcRxArxApp {
        bool unloaded = false;
        AcRx::AppRetCode On_kUnloadAppMsg(void*) override
        {
            unloaded = true;
            return AcRx::kRetOK;
        }
    };
    static App theApp;
    auto entry = [](AcRx::AppMsgCode msg, void* pkt) { return theApp.acrxEntryPoint(msg, pkt); };
    sim::app::Application* app = dynamicLinker().load(L"Std", entry);
    ASSERT_NE(app, nullptr);
    EXPECT_FALSE(app->locked);
    EXPECT_TRUE(app->mdiAware);
    EXPECT_EQ(theApp.GetModuleInstance(), app->module);
    EXPECT_NE(app->module, nullptr);
    // Messages past kEndDialogMsg have no handler.
    EXPECT_EQ(theApp.acrxEntryPoint(static_cast<AcRx::AppMsgCode>(99), nullptr), AcRx::kRetOK);
    EXPECT_TRUE(dynamicLinker().unload(*app));
    EXPECT_TRUE(theApp.unloaded);
}

// An application whose AutoLISP functions answer in the several ways the host allows.
void noCommand() {}

AcRx::AppRetCode lispEntry(AcRx::AppMsgCode msg, void* pkt)
{
    switch (msg) {
    case AcRx::kInitAppMsg:
        acrxDynamicLinker->unlockApplication(pkt);
        acedRegCmds->addCommand(L"LISPTEST", L"lt", L"lt", ACRX_CMD_MODAL, noCommand);
        break;
    case AcRx::kLoadDwgMsg:
        acedDefun(L"echo", 0);
        acedDefun(L"silent", 1);
        acedDefun(L"loud", 2);
        acedDefun(L"throws", 3);
        if (sim::app::currentDocument() == &g_docs->a)
            acedDefun(L"only_a", 4);
        break;
    case AcRx::kUnloadDwgMsg:
        acedUndef(L"echo", 0);
        acedUndef(L"silent", 1);
        acedUndef(L"loud", 2);
        acedUndef(L"throws", 3);
        break;
    case AcRx::kUnloadAppMsg:
        acedRegCmds->removeGroup(L"LISPTEST");
        break;
    case AcRx::kInvkSubrMsg:
        switch (acedGetFunCode()) {
        case 0: acedRetList(acedGetArgs()); break;
        case 1: break;
        case 2:
            acutPrintf(L"\nmessage");
            acedRetT();
            break;
        case 3: throw std::runtime_error("broken");
        case 4: acedRetStr(L"a"); break;
        }
        break;
    default: break;
    }
    return AcRx::kRetOK;
}

TEST_F(Loader, AutoLispCallsReachTheDefiningApplication)
{
    sim::Session session(std::make_unique<sim::ScriptInput>(""));
    sim::app::Application* app = dynamicLinker().load(L"Lisp", lispEntry);
    ASSERT_NE(app, nullptr);
    EXPECT_EQ(sim::app::commandStack().lookupGlobalCmd(L"lt")->commandApp(), app);

    sim::app::runLispLine(LR"x((ECHO 1 "s" '(1 2 3)))x");
    sim::app::runLispLine(L"(silent)");
    sim::app::runLispLine(L"(loud)");
    sim::app::runLispLine(L"(nothing 1)");
    sim::app::runLispLine(L"(echo 1");
    sim::app::runLispLine(L"(throws)");
    sim::app::runLispLine(L"(only_a)");
    docs.cur = &docs.b;
    sim::app::runLispLine(L"(only_a)");
    EXPECT_EQ(session.transcript(), L"(1 \"s\" (1.0 2.0 3.0))\n"
                                    L"nil\n"
                                    L"\nmessageT\n"
                                    L"; error: no function definition: NOTHING\n"
                                    L"; error: malformed list on input\n"
                                    L"; error: broken\n"
                                    L"\"a\"\n"
                                    L"; error: no function definition: ONLY_A\n");
    EXPECT_EQ(acedGetFunCode(), RTERROR); // outside a call
    EXPECT_EQ(acedRetT(), RTERROR);

    // The functions go with the application; its definitions in document a that it did not undefine
    // go too.
    ASSERT_TRUE(dynamicLinker().unload(*app));
    EXPECT_TRUE(sim::app::lispFunctions().definitions(&docs.a).empty());
    EXPECT_EQ(sim::app::commandStack().lookupGlobalCmd(L"lt"), nullptr);
}

TEST_F(Loader, DefunNeedsANameAndANumberAndUndefBoth)
{
    sim::app::LispFunctions table;
    EXPECT_FALSE(table.define(&docs.a, L"", 0, nullptr));
    EXPECT_FALSE(table.define(&docs.a, L"f", -1, nullptr));
    EXPECT_TRUE(table.define(&docs.a, L"f", 3, nullptr));
    EXPECT_TRUE(table.define(&docs.a, L"F", 4, nullptr)); // redefinition, case ignored
    EXPECT_EQ(table.definitions(&docs.a).size(), 1u);
    EXPECT_FALSE(table.undefine(&docs.a, L"f", 3));
    EXPECT_FALSE(table.undefine(&docs.b, L"f", 4));
    EXPECT_TRUE(table.undefine(&docs.a, L"f", 4));
    EXPECT_EQ(table.find(&docs.a, L"f"), nullptr);
}

} // namespace
