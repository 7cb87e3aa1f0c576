// The layers of a drawing: the table that its paths point into, the colours with a number, and how a reading hands
// them on.
#include "closed/pathwerk/lecture/Calques.h"
#include "tests/unit/closed/pathwerk/Aide.h"

namespace {

using namespace aide;
using pathwerk::Calque;
using pathwerk::lecture::CouleurDePalette;
using pathwerk::lecture::NomCalqueMax;
using pathwerk::lecture::TableCalques;
using Genre = Calque::Genre;

TEST(TableCalques, HoldsEachLayerOnce) {
  TableCalques table;
  EXPECT_EQ(table.Place(Genre::Nomme, "Coupe", std::nullopt), 1);
  EXPECT_EQ(table.Place(Genre::Nomme, "Bord", 0xFF0000), 2);
  EXPECT_EQ(table.Place(Genre::Nomme, "Coupe", std::nullopt), 1);
  EXPECT_EQ(table.Place(Genre::Nomme, "Bord", 0x00FF00), 3) << "another colour is another layer";
  EXPECT_EQ(table.Place(Genre::Plume, "Coupe", std::nullopt), 4);
  ASSERT_EQ(table.Tous().size(), 5U);
  EXPECT_EQ(table.Tous()[0], Calque{});
  EXPECT_EQ(table.Tous()[2], (Calque{Genre::Nomme, "Bord", 0xFF0000}));
}

TEST(TableCalques, WhatSaysNothingIsTheFirst) {
  TableCalques table;
  EXPECT_EQ(table.Place(Genre::Nomme, "", std::nullopt), 0);
  EXPECT_EQ(table.Place(Genre::Nomme, "", 0), 1) << "black says something";
  EXPECT_EQ(table.Tous().size(), 2U);
}

TEST(TableCalques, KeepsOfANameWhatCanBeShown) {
  TableCalques table;
  EXPECT_EQ(table.Place(Genre::Nomme, std::string(1'000'000, 'x'), std::nullopt), 1);
  EXPECT_EQ(table.Place(Genre::Nomme, std::string(2'000'000, 'x'), std::nullopt), 1);
  EXPECT_EQ(table.Tous()[1].Nom, std::string(NomCalqueMax, 'x'));
}

TEST(TableCalques, HasRoomForAsManyAsSixteenBitsCanName) {
  TableCalques table;
  for (int i = 1; i <= 100'000; ++i) {
    const auto place = table.Place(Genre::Nomme, std::to_string(i), std::nullopt);
    ASSERT_EQ(place, i <= 65535 ? i : 0) << i;
  }
  EXPECT_EQ(table.Tous().size(), 65536U);
  EXPECT_EQ(table.Place(Genre::Nomme, "17", std::nullopt), 17) << "those that it holds it still knows";
}

// Values of the palette as CAD programs print it.
TEST(CouleurDePalette, IsThatOfThePalette) {
  const std::vector<std::pair<int, std::uint32_t>> couleurs{
      {1, 0xFF0000},   {2, 0xFFFF00},   {3, 0x00FF00},   {4, 0x00FFFF},   {5, 0x0000FF},   {6, 0xFF00FF},
      {8, 0x808080},   {9, 0xC0C0C0},   {10, 0xFF0000},  {11, 0xFF7F7F},  {12, 0xA50000},  {13, 0xA55252},
      {14, 0x7F0000},  {16, 0x4C0000},  {18, 0x260000},  {20, 0xFF3F00},  {21, 0xFF9F7F},  {30, 0xFF7F00},
      {42, 0xA57C00},  {47, 0x4C4226},  {50, 0xFFFF00},  {70, 0x7FFF00},  {82, 0x29A500},  {90, 0x00FF00},
      {106, 0x004C13}, {130, 0x00FFFF}, {142, 0x007CA5}, {150, 0x007FFF}, {170, 0x0000FF}, {195, 0x5F3F7F},
      {210, 0xFF00FF}, {232, 0xA50052}, {240, 0xFF003F}, {245, 0x7F3F4F}, {250, 0x333333}, {255, 0xFFFFFF}};
  for (const auto& [numero, couleur] : couleurs) EXPECT_EQ(CouleurDePalette(numero), couleur) << numero;
}

TEST(CouleurDePalette, SevenAndWhatIsNoNumberOfItHaveNone) {
  for (const int numero : {7, 0, -1, 256, 257, 100000}) EXPECT_EQ(CouleurDePalette(numero), std::nullopt) << numero;
}

// Three lines on two layers, one of them without any word of it.
TEST(ImporteFichier, HandsOnTheLayerOfEachPath) {
  const Dossier d;
  const auto lu = Lis(d.Ecrit("a.dxf",
                              "0\nSECTION\n2\nENTITIES\n"
                              "0\nLINE\n8\nBord\n62\n1\n10\n0\n20\n0\n11\n5\n21\n0\n"
                              "0\nLINE\n10\n0\n20\n10\n11\n5\n21\n10\n"
                              "0\nLINE\n8\nBord\n62\n1\n10\n0\n20\n20\n11\n5\n21\n20\n0\nENDSEC\n0\nEOF\n"));
  ASSERT_EQ(lu.Nombre, 6);
  ASSERT_EQ(lu.CalquesDesChemins.size(), 3U);
  ASSERT_EQ(lu.Calques.size(), 3U);
  EXPECT_EQ(lu.Calques[lu.CalquesDesChemins[0]], (Calque{Genre::Nomme, "Bord", 0xFF0000}));
  EXPECT_EQ(lu.Calques[lu.CalquesDesChemins[1]], (Calque{Genre::Nomme, "0", std::nullopt}));
  EXPECT_EQ(lu.CalquesDesChemins[2], lu.CalquesDesChemins[0]);
}

TEST(ImporteFichier, OfAFileWithoutLayersHandsOnNone) {
  const Dossier d;
  const auto lu = Lis(d.Ecrit("a.dat", "1 2\n3 4\n"));
  EXPECT_EQ(lu.Nombre, 2);
  EXPECT_TRUE(lu.Calques.empty());
  EXPECT_TRUE(lu.CalquesDesChemins.empty());
}

TEST(ImporteFichier, OfARefusedFileHandsOnNone) {
  const Dossier d;
  const auto lu = Lis(d.Ecrit("a.dxf",
                              "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nBord\n10\n0\n20\n0\n11\n9e9\n21\n0\n0\nENDSEC\n"
                              "0\nEOF\n"));
  EXPECT_EQ(lu.Nombre, pathwerk::Numero(pathwerk::Erreur::Coordonnee));
  EXPECT_TRUE(lu.Calques.empty());
  EXPECT_TRUE(lu.CalquesDesChemins.empty());
}

}  // namespace
