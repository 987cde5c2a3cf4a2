// The edge of commands and AutoLISP functions: what a failure leaves behind, and the exception box.
#include <stdexcept>

#include "CTogException.h"
#include "OkrajPrikazu.h"
#include "SystemNaPlatforme.h"
#include "acdocman.h"
#include "acedads.h"
#include "dbapserv.h"
#include "acedlisp.h"
#include "sim/app/LispCall.h"
#include "sim/app/LispFunctions.h"

namespace {

AcTransactionManager* Transakce() { return acdbHostApplicationServices()->workingDatabase()->transactionManager(); }

// A small application whose AutoLISP function 0 fails inside the edge.
AcRx::AppRetCode AplikaceSChybou(AcRx::AppMsgCode zprava, void*)
{
    if (zprava == AcRx::kInvkSubrMsg)
        ProvedLispFunkci([]() -> int {
            acedRetT();
            throw CTogException("Nelze otevřít slovník", 12, "CTogXRecord.cpp");
        });
    return AcRx::kRetOK;
}

} // namespace

using Okraj = SystemNaPlatforme;

TEST_F(Okraj, FailedCommandAbortsWhatItStartedAndShowsTheBox)
{
    Spust("\n");
    Transakce()->startTransaction(); // a transaction of the caller stays open
    ProvedPrikaz([] {
        Transakce()->startTransaction();
        Transakce()->startTransaction();
        throw CTogException("Nelze otevřít hladinu", 7, "CTogDwg.cpp", -5);
    });
    EXPECT_EQ(Transakce()->numActiveTransactions(), 1);
    Transakce()->abortTransaction();
    EXPECT_NE(Zaznam().find(L"Program vyvolal výjimku"), std::wstring::npos) << sim::toUtf8(Zaznam());
    EXPECT_NE(Zaznam().find(L"Nelze otevřít hladinu\nZdroj: -5, Line 7,\nCTogDwg.cpp"), std::wstring::npos)
        << sim::toUtf8(Zaznam());
    EXPECT_FALSE(m_session->waitingPrompt().has_value());
}

TEST_F(Okraj, UserMessageGoesToTheCommandLine)
{
    Spust();
    ProvedPrikaz([] {
        Transakce()->startTransaction();
        throw CTogEasyExcept(L"Hladina je zamčená");
    });
    EXPECT_EQ(Transakce()->numActiveTransactions(), 0);
    EXPECT_EQ(Zaznam(), L"\nHladina je zamčená");
}

TEST_F(Okraj, CommandThatEndsWellLeavesItsTransactionsAlone)
{
    Spust();
    ProvedPrikaz([] { Transakce()->startTransaction(); });
    EXPECT_EQ(Transakce()->numActiveTransactions(), 1);
    Transakce()->endTransaction();
    EXPECT_EQ(Zaznam(), L"");
}

TEST_F(Okraj, FailedAutoLispFunctionAnswersNil)
{
    Spust("\n");
    sim::app::Application* app = sim::app::dynamicLinker().load(L"SChybou", AplikaceSChybou);
    ASSERT_NE(app, nullptr);
    std::optional<sim::app::LispAnswer> odpoved = sim::app::invokeLisp({L"s_chybou", 0, app}, nullptr);
    ASSERT_TRUE(odpoved.has_value());
    ASSERT_FALSE(odpoved->values.empty());
    EXPECT_EQ(odpoved->values.get()->restype, RTNIL);
    EXPECT_NE(Zaznam().find(L"Nelze otevřít slovník"), std::wstring::npos);
}

TEST_F(Okraj, ExceptionWithEmptyTextShowsNothing)
{
    Spust();
    ZobrazVyjimku(std::runtime_error(""));
    EXPECT_EQ(Zaznam(), L"");
    EXPECT_FALSE(m_session->waitingPrompt().has_value()) << "no box may wait for an answer";
}
