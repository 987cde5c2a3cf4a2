// The edge of commands, dialog buttons and AutoLISP functions.
#include "StdAfx.h"
#include "OkrajPrikazu.h"
#include "CTogException.h"

namespace {

// Remembers how many transactions of the working database were open when the body started, so that
// after a failure exactly those that the body started can be aborted.
class CHlidacTransakci {
public:
    CHlidacTransakci()
    {
        AcDbHostApplicationServices* sluzby = acdbHostApplicationServices();
        AcDbDatabase* db = sluzby ? sluzby->workingDatabase() : nullptr;
        m_spravce = db ? db->transactionManager() : nullptr;
        m_pocet = m_spravce ? m_spravce->numActiveTransactions() : 0;
    }

    void ZrusZapocate()
    {
        if (m_spravce == nullptr)
            return;
        while (m_spravce->numActiveTransactions() > m_pocet)
            if (m_spravce->abortTransaction() != Acad::eOk)
                break;
    }

private:
    AcDbTransactionManager* m_spravce = nullptr;
    int m_pocet = 0;
};

// Gives true when the body failed.
bool ProvedSOkrajem(const std::function<void()>& telo)
{
    CHlidacTransakci transakce;
    try {
        telo();
        return false;
    } catch (const std::exception& e) {
        transakce.ZrusZapocate();
        ZobrazVyjimku(e);
    } catch (const CTogEasyExcept& e) {
        // A message for the user, such as a locked standard layer: it stops here like any failure, and
        // as a wrong input does, it goes to the command line rather than into a box.
        transakce.ZrusZapocate();
        acutPrintf(L"\n%ls", e.what());
    }
    return true;
}

} // namespace

void ProvedPrikaz(const std::function<void()>& telo) { ProvedSOkrajem(telo); }

int ProvedLispFunkci(const std::function<int()>& telo)
{
    int vysledek = RTNORM;
    if (ProvedSOkrajem([&] { vysledek = telo(); })) {
        acedRetNil();
        vysledek = RTNORM;
    }
    return vysledek;
}
