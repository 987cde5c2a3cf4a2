// TabulkaLisp: the AutoLISP functions of the system in the order of their function numbers.
#include "StdAfx.h"
#include "TabulkaLisp.h"
#include "LispFunkce.h"

const std::array<PolozkaLisp, 17> TabulkaLisp = {{
    {L"togu_is_debug", togu_is_debug, false},
    {L"togu_nastaveni", togu_nastaveni, false},
    {L"togu_nacti_cestu", togu_nacti_cestu, false},
    {L"togu_nastav_uziv_hladinu", togu_nastav_uziv_hladinu, false},
    {L"togu_nastav_mleaderstyl", togu_nastav_mleaderstyl, false},
    {L"togu_nastav_dimstyl", togu_nastav_dimstyl, false},
    {L"togu_nastav_hladinu", togu_nastav_hladinu, false},
    {L"togu_nastav_textstyl", togu_nastav_textstyl, false},
    {L"togu_nactizx_real", togu_nactizx_real, false},
    {L"togu_zmen_hladinu_entity", togu_zmen_hladinu_entity, false},
    {L"togu_nactizx_string", togu_nactizx_string, false},
    {L"togu_nactizx_point", togu_nactizx_point, false},
    {L"togu_ulozdox_real", togu_ulozdox_real, false},
    {L"togu_nactizx_int", togu_nactizx_int, false},
    {L"togu_ulozdox_string", togu_ulozdox_string, false},
    {L"togu_ulozdox_point", togu_ulozdox_point, false},
    {L"togu_ulozdox_int", togu_ulozdox_int, false},
}};
