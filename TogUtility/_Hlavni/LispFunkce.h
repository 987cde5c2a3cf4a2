// The AutoLISP functions of the system. Each reads its arguments with acedGetArgs and answers the
// interpreter with one acedRet... call; each gives RTNORM.
#pragma once

/// Answers nil.
int togu_is_debug();
/// (togu_nacti_cestu soubor [adresar] [podadresar] [typ]): a path of the installation.
int togu_nacti_cestu();
/// (togu_nactizx_int klic): an integer of the drawing store, or nil.
int togu_nactizx_int();
/// (togu_nactizx_point klic): a point of the drawing store, or nil.
int togu_nactizx_point();
/// (togu_nactizx_real klic): a real of the drawing store, or nil.
int togu_nactizx_real();
/// (togu_nactizx_string klic): a string of the drawing store, or nil.
int togu_nactizx_string();
/// (togu_nastav_dimstyl nazev): the standard dimension style, created if need be.
int togu_nastav_dimstyl();
/// (togu_nastav_hladinu nazev): the standard layer, created if need be; answers its whole name.
int togu_nastav_hladinu();
/// (togu_nastav_mleaderstyl nazev): the standard multileader style, created if need be.
int togu_nastav_mleaderstyl();
/// (togu_nastav_textstyl nazev): the standard text style, created if need be.
int togu_nastav_textstyl();
/// A user layer with the caller's properties; answers its name.
int togu_nastav_uziv_hladinu();
/// (togu_nastaveni typ): 0 or 1, a switch of the settings.
int togu_nastaveni();
/// (togu_ulozdox_int klic hodnota): stores an integer in the drawing.
int togu_ulozdox_int();
/// (togu_ulozdox_point klic bod): stores a point in the drawing.
int togu_ulozdox_point();
/// (togu_ulozdox_real klic hodnota): stores a real in the drawing.
int togu_ulozdox_real();
/// (togu_ulozdox_string klic hodnota): stores a string in the drawing.
int togu_ulozdox_string();
/// (togu_zmen_hladinu_entity nazev): moves the selected entities to the standard layer.
int togu_zmen_hladinu_entity();
