// Dessin: what it shows, what it keeps, its snapshot, and who comes when.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPaintEvent>
#include <stdexcept>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ui/ServicesQt.h"
#include "image/SceneDocument.h"
#include "tests/ui/image/Atelier.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Souris.h"
#include "workspace/ui/SuiviRun.h"

namespace {

using namespace ovelin;
using essai::Atelier;
using essai::Compte;
using essai::DeuxCarres;
using essai::Ecart;

double Contraste(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& c) {
    const auto f = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * f(c.red() / 255.0) + 0.7152 * f(c.green() / 255.0) + 0.0722 * f(c.blue() / 255.0);
  };
  const double la = luminance(a);
  const double lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

TEST(Dessin, ShowsTheDrawingAndTheToolPathWhereTheViewPutsThem) {
  DeuxCarres();
  const Atelier a;
  EXPECT_LT(Ecart(a.Trouve(0, 25, Qt::black), Qt::black), 250) << "left side of the first square";
  EXPECT_LT(Ecart(a.Trouve(100, 25, Qt::black), Qt::black), 250) << "right side of the second";
  const SequenceDecalee& outil = TraceDecale.at(0);
  ASSERT_FALSE(outil.Points.empty());
  const float x = (outil.Points[0].X + outil.Points[1].X) / 2;
  const float y = (outil.Points[0].Y + outil.Points[1].Y) / 2;
  EXPECT_LT(Ecart(a.Trouve(x, y, QColor(255, 0, 0)), QColor(255, 0, 0)), 160);
}

TEST(Dessin, SelectedPathsHaveTheirColour) {
  DeuxCarres();
  Atelier a;
  const QColor choisie(100, 0, 0);
  EXPECT_GT(Ecart(a.Trouve(0, 25, choisie), choisie), 60);
  BasculeSelection(Code2("AA"));
  a.image.Dessin();
  EXPECT_LT(Ecart(a.Trouve(0, 25, choisie), choisie), 60);
  EXPECT_GT(Ecart(a.Trouve(100, 25, choisie), choisie), 60);
}

TEST(Dessin, SelectedPathsShowAlsoInTheColourOfTheOthers) {
  DeuxCarres();
  Regl.Couleurselectionne = Regl.CouleurInitial;
  Atelier a;
  const int sans = Compte(a.image.Image(), Qt::black, 90);
  BasculeSelection(Code2("AA"));
  a.image.Dessin();
  EXPECT_GT(Compte(a.image.Image(), Qt::black, 90), sans + 50);
}

TEST(Dessin, EveryColourIsDrawnAndLegibleInLightAndDark) {
  for (const bool sombre : {false, true}) {
    Doc = Document{};
    DeuxCarres();
    essai::ThemeSombreEssai(sombre);
    LargeurEncoche = 5;
    ASSERT_TRUE(AjouteAttache(0, 20));
    BasculeSelection(Code2("AA"));
    Atelier a;
    a.image.NumSequence(true);
    a.image.Dessin();
    const QColor papier = Papier(a.image);
    EXPECT_EQ(a.image.Image().pixelColor(590, 390), papier);
    for (const std::int32_t couleur : {Regl.CouleurInitial, Regl.Couleurselectionne, Regl.CouleurDecalage,
                                       Regl.CouleurEncoche, Regl.CouleurSequence}) {
      const QColor dessus = CouleurLisible(EnCouleur(couleur), papier);
      EXPECT_GE(Contraste(dessus, papier), 2.95) << couleur;
      EXPECT_GT(Compte(a.image.Image(), dessus, 90), 3) << couleur << (sombre ? " dark" : " light");
    }
  }
}

TEST(Dessin, FollowsAChangeOfTheThemeWithoutASnapshot) {
  DeuxCarres();
  Atelier a;
  EXPECT_EQ(a.image.Image().pixelColor(590, 390), QColor(Qt::white));
  essai::ThemeSombreEssai(true);
  essai::Evenements();
  EXPECT_EQ(a.image.Image().pixelColor(590, 390), Papier(a.image));
  EXPECT_NE(Papier(a.image), QColor(Qt::white));
  EXPECT_EQ(NumeroInstantane(), 1);
}

TEST(Dessin, LaterElementsLieOverEarlierOnes) {
  // The attachment mark stands on the line of the drawing, the number of the path on its start and its arrow.
  DeuxCarres();
  LargeurEncoche = 5;
  ASSERT_TRUE(AjouteAttache(0, 20));
  Atelier a;
  a.image.NumSequence(true);
  a.image.Dessin();
  const QImage image = a.image.Image();
  EXPECT_LT(Ecart(image.pixelColor(a.Pixel(0, 20)), QColor(0, 0, 100)), 30) << "mark over line";
  EXPECT_LT(Ecart(a.Trouve(0, 0, Qt::white, 8), Qt::white), 30) << "white disc of the number over the corner";
  EXPECT_LT(Ecart(a.Trouve(0, 0, QColor(0, 0, 255), 8), QColor(0, 0, 255)), 120) << "its number and edge";
}

TEST(Dessin, MarksOfPointsAndNumbersComeWithTheirButtons) {
  DeuxCarres();
  Atelier a;
  const int sans = Compte(a.image.Image(), Qt::black);
  a.image.NumPoint(true);
  EXPECT_EQ(Compte(a.image.Image(), Qt::black), sans) << "the button alone draws nothing";
  a.image.Dessin();
  const float cote = CoteMarque(a.image.Taille()) / 15;
  EXPECT_GT(Compte(a.image.Image(), Qt::black), sans + static_cast<int>(4 * cote * cote / 2));
  a.image.NumPoint(false);
  a.image.NumSequence(true);
  a.image.Dessin();
  EXPECT_GT(Compte(a.image.Image(), QColor(0, 0, 255), 90), 20);
}

TEST(Dessin, WritesTheLegendIntoItsLabels) {
  DeuxCarres();
  Atelier a;
  auto* dessin = essai::Controle<QLabel>(a.image, "Label_Couleur_Dessin");
  auto* decalage = essai::Controle<QLabel>(a.image, "Label_Couleur_Decalage");
  const OptionsScene options = OptionsCourantes(false, false);
  EXPECT_TRUE(dessin->isVisible());
  EXPECT_TRUE(decalage->isVisible());
  EXPECT_EQ(dessin->text().toStdString(), options.legendeDessin);
  EXPECT_EQ(decalage->text().toStdString(), options.legendeDecalage);
  const QColor encre = decalage->palette().color(QPalette::WindowText);
  EXPECT_GE(Contraste(encre, Qt::white), 4.5) << "the setting's red alone has 3.998";
  EXPECT_EQ(encre.hue(), 0);
  EXPECT_EQ(encre.saturation(), 255);
  EXPECT_EQ(decalage->y(), dessin->y() + dessin->height());
  EXPECT_EQ(dessin->x(), decalage->x());
  EXPECT_EQ(dessin->x(), std::max(1, static_cast<int>(std::lround(dessin->height() / 10.0))));
}

TEST(Dessin, WithoutPointsThePaperIsEmptyAndNoSnapshotIsTaken) {
  DeuxCarres();
  Atelier a;
  Doc = Document{};
  a.image.Dessin();
  EXPECT_EQ(Compte(a.image.Image(), Qt::white, 0), 600 * 400);
  EXPECT_FALSE(essai::Controle<QLabel>(a.image, "Label_Couleur_Dessin")->isVisible());
  EXPECT_EQ(NumeroInstantane(), 1);
  EXPECT_TRUE(a.boutons.empty());
}

TEST(Dessin, LeavesASnapshotAndTellsTheButtonOfUndo) {
  DeuxCarres();
  Atelier a;
  EXPECT_EQ(NumeroInstantane(), 1);
  a.image.Dessin();
  EXPECT_EQ(NumeroInstantane(), 2);
  Zoom *= 1.5F;
  a.image.Dessin();
  EXPECT_EQ(NumeroInstantane(), 3) << "a zoom is a redraw";
  EXPECT_EQ(a.boutons, (std::vector<bool>{true, true}));
}

TEST(Dessin, TheFirstSnapshotDoesNotOfferUndo) {
  DeuxCarres();
  ImagePB1 image;
  std::vector<bool> boutons;
  QObject::connect(&image, &ImagePB1::Instantane, [&](bool b) { boutons.push_back(b); });
  essai::Montre(image, 300, 200);
  ASSERT_FALSE(boutons.empty());
  EXPECT_FALSE(boutons.front());
}

TEST(Dessin, WishesBeforeTheFirstShowingAreOneDessinAndOneSnapshot) {
  DeuxCarres();
  ImagePB1 image;
  mnu_Zoom1(image.Taille());
  image.Dessin();
  image.Dessin();
  EXPECT_EQ(NumeroInstantane(), 0);
  essai::Montre(image, 300, 200);
  EXPECT_EQ(NumeroInstantane(), 1) << "undo would be offered for nothing";
}

TEST(Dessin, AWishBeforeTheFirstShowingIsMetForADrawingWithoutExtentToo) {
  essai::AjouteSequence("AA", {{5, 5}, {5, 5}});
  EncombrementGeneral();
  ImagePB1 image;
  image.Dessin();
  essai::Attend("F_Representation", "lib005");
  essai::Montre(image, 300, 200);
  EXPECT_EQ(NumeroInstantane(), 1);
}

TEST(Dessin, ThePictureIsKept) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.Image();
  const QPoint coin = a.Pixel(0, 0);
  TraceInitial.clear();
  TraceDecale.clear();
  NbPoints = 0;
  Zoom *= 7;
  a.image.repaint();
  essai::Evenements();
  EXPECT_EQ(a.image.Image(), avant) << "painting looks at nothing but what was drawn";
  EXPECT_EQ(a.image.grab().toImage().convertToFormat(QImage::Format_RGB32).pixelColor(coin),
            avant.pixelColor(coin));
  EXPECT_EQ(NumeroInstantane(), 1);
}

TEST(Dessin, ASecondOneThatArrivesMeanwhileComesAfterOnce) {
  DeuxCarres();
  Atelier a;
  int meme = 0;
  bool enCours = false;
  const auto avant = Svc.LaisseEvenements;
  Svc.LaisseEvenements = [&](Evenements) {
    if (meme++ > 0) return;
    enCours = a.image.DessinEnCours();
    a.image.Dessin();
    a.image.Dessin();
    EXPECT_EQ(a.boutons.size(), 0U) << "nothing is drawn within";
  };
  TraceInitial[0].X += 1;  // a snapshot that has to be written
  a.image.Dessin();
  Svc.LaisseEvenements = avant;
  EXPECT_TRUE(enCours);
  EXPECT_GT(meme, 0);
  EXPECT_FALSE(a.image.DessinEnCours());
  EXPECT_EQ(a.boutons.size(), 1U);
  essai::Evenements();
  EXPECT_EQ(a.boutons.size(), 2U);
  EXPECT_EQ(NumeroInstantane(), 3);
}

TEST(Dessin, OneThatFailsOnTheWayLeavesAPictureThatDraws) {
  DeuxCarres();
  Atelier a;
  const auto avant = Svc.LaisseEvenements;
  Svc.LaisseEvenements = [](Evenements) { throw std::runtime_error("full"); };
  TraceInitial[0].X += 1;
  EXPECT_THROW(a.image.Dessin(), std::runtime_error);
  Svc.LaisseEvenements = avant;
  EXPECT_FALSE(a.image.DessinEnCours());
  a.image.Dessin();
  EXPECT_EQ(a.boutons.size(), 1U);
}

TEST(Dessin, WaitsForARunningPass) {
  DeuxCarres();
  Atelier a;
  {
    const Passe passe;
    a.image.Dessin();
    a.image.Dessin();
    EXPECT_TRUE(a.boutons.empty());
  }
  essai::Evenements();
  EXPECT_EQ(a.boutons.size(), 1U);
}

TEST(Dessin, APostponedOneOfAClosedWindowIsForgotten) {
  DeuxCarres();
  {
    const Passe passe;
    {
      Atelier a;
      a.image.Dessin();
    }
  }
  essai::Evenements();
  EXPECT_EQ(NumeroInstantane(), 0) << "shown and closed within the pass: never drawn";
}

int Differents(const QImage& a, const QImage& b) {
  int n = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) n += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
  }
  return n;
}

TEST(Retient, WhatIsShownStaysWhileADrawingIsOpened) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.Image();
  a.image.Retient(true);
  Doc = Document{};
  essai::AjouteCarre("AA", 0, 0, 10);
  a.image.Dessin();
  EXPECT_EQ(a.image.Image(), avant);
  EXPECT_EQ(NumeroInstantane(), 1);
  a.image.resize(700, 450);
  a.image.MetEnPage();
  EXPECT_EQ(a.miseEnPage, 0);
  EXPECT_EQ(a.image.Image(), avant);
  EncombrementGeneral();
  a.image.Retient(false);
  a.image.Dessin();
  EXPECT_NE(a.image.Image(), avant);
  EXPECT_EQ(NumeroInstantane(), 2);
}

// --- marks on top ----------------------------------------------------------------------------------------------

TEST(Croix, LastsUntilTheNextDessin) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.Image();
  a.image.Croix({20, 20, CodePD, Code2("AA")});
  EXPECT_LT(Ecart(a.Trouve(20, 20, Qt::black, 1), Qt::black), 250);
  EXPECT_GT(Differents(a.image.Image(), avant), 20);
  a.image.repaint();
  EXPECT_LT(Ecart(a.Trouve(20, 20, Qt::black, 1), Qt::black), 250);
  a.image.Dessin();
  EXPECT_EQ(a.image.Image(), avant);
}

TEST(Croix, ANewOneReplacesTheOneBefore) {
  DeuxCarres();
  Atelier a;
  a.image.Croix({20, 20, CodePD, Code2("AA")});
  a.image.Croix({80, 20, CodePD, Code2("AB")});
  EXPECT_EQ(a.Trouve(20, 20, Qt::black, 1), QColor(Qt::white));
  EXPECT_LT(Ecart(a.Trouve(80, 20, Qt::black, 1), Qt::black), 250);
}

TEST(PositionOutil, ShowsTheToolWithTheFlagOnly) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.Image();
  a.image.PositionOutil(20, 20);
  EXPECT_EQ(a.image.Image(), avant);
  EXPECT_EQ(Cycle.Outil, (MemoireOutil{20, 20})) << "remembered all the same";
  Cycle.AfficheOutil = true;
  a.image.PositionOutil(80, 30);
  EXPECT_NE(a.image.Image(), avant);
  EXPECT_GT(Compte(a.image.Image(), QColor(0, 0, 255), 120), Compte(avant, QColor(0, 0, 255), 120) + 10);
}

TEST(PositionOutil, TheLastMarkGoesWithTheNextAndTheSamePlaceDoesNothing) {
  DeuxCarres();
  Cycle.AfficheOutil = true;
  Atelier a;
  a.image.PositionOutil(20, 20);
  const QImage premiere = a.image.Image();
  a.image.PositionOutil(20, 20);
  EXPECT_EQ(a.image.Image(), premiere);
  a.image.PositionOutil(80, 30);
  a.image.PositionOutil(80, 10);
  EXPECT_EQ(a.Trouve(30, 21.5F, QColor(0, 0, 255), 1), QColor(Qt::white)) << "the line of the movement before";
}

TEST(PositionOutil, StaysWithTheViewAfterADessin) {
  DeuxCarres();
  Cycle.AfficheOutil = true;
  Atelier a;
  a.image.PositionOutil(20, 20);
  Zoom *= 0.5F;
  a.image.Dessin();
  EXPECT_LT(Ecart(a.Trouve(20, 20, QColor(0, 0, 255), 10), QColor(0, 0, 255)), 150);
  Cycle.Outil = MemoireOutil{};
  a.image.Dessin();
  EXPECT_GT(Ecart(a.Trouve(20, 20, QColor(0, 0, 255), 10), QColor(0, 0, 255)), 300) << "gone with the reset";
}

// --- the run ---------------------------------------------------------------------------------------------------

TEST(LigneRun, GrowsWithTheRunAndIsGoneWithIt) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.grab().toImage();
  a.image.AjouteRun(10, 50, 40, 50);
  a.image.AjouteRun(40, 50, 40, 58);
  const auto bleu = [&a](float x, float y) {
    const QImage vue = a.image.grab().toImage();
    const QPoint ici = a.Pixel(x, y);
    int pire = 1000;
    for (int dx = -1; dx <= 1; ++dx) {
      for (int dy = -1; dy <= 1; ++dy) {
        pire = std::min(pire, Ecart(vue.pixelColor(ici + QPoint(dx, dy)), QColor(0, 0, 255)));
      }
    }
    return pire < 320;  // white is 510 away
  };
  EXPECT_TRUE(bleu(25, 50));
  EXPECT_TRUE(bleu(40, 55));
  EXPECT_FALSE(bleu(50, 50)) << "not there yet";
  a.image.AjouteRun(40, 50, 60, 50);
  EXPECT_TRUE(bleu(50, 50));
  Zoom *= 0.5F;
  a.image.Dessin();
  EXPECT_TRUE(bleu(25, 50)) << "where it belongs in another view";
  EXPECT_TRUE(bleu(50, 50));
  Zoom *= 2;
  a.image.Dessin();
  a.image.EffaceRun();
  EXPECT_EQ(a.image.grab().toImage(), avant);
}

TEST(SuiviRun, ShowsTheLastPlaceOfManyAndTheLineWithItsNextBeat) {
  DeuxCarres();
  Atelier a;
  SuiviRun suivi(a.image);
  const QImage avant = a.image.grab().toImage();
  for (int i = 0; i <= 60; ++i) suivi.Marque(20 + i, 20);
  suivi.Ligne(10, 50, 40, 50);
  EXPECT_EQ(Cycle.Outil, MemoireOutil{}) << "not at once";
  EXPECT_FALSE(Cycle.AfficheOutil);
  ASSERT_TRUE(QTest::qWaitFor([] { return Cycle.Outil == MemoireOutil{80, 20}; }));
  EXPECT_TRUE(Cycle.AfficheOutil);
  EXPECT_NE(a.image.grab().toImage(), avant);
}

// --- size ------------------------------------------------------------------------------------------------------

TEST(Taille, IsTheInnerSizeInTwips) {
  DeuxCarres();
  const Atelier a;
  EXPECT_EQ(a.image.Taille(), (TailleImage{600 * 15, 400 * 15}));
}

TEST(MetEnPage, KeepsTheZoomOfTheUserRelativeToTheFit) {
  DeuxCarres();
  Atelier a;
  const float ajuste = Zoom;
  Zoom *= 2;
  a.image.resize(900, 600);
  essai::Evenements();
  EXPECT_EQ(Zoom, 2 * ajuste) << "nothing before the size has settled";
  a.image.MetEnPage();
  const float neuf = ZoomAjuste(Xmin, Xmax, Ymin, Ymax, a.image.Taille(), MargeVue);
  EXPECT_GT(neuf, ajuste);
  EXPECT_NEAR(static_cast<double>(Zoom / neuf), 2.0, 1e-5);
  EXPECT_EQ(OrigineEcranX, 450 * 15);
  EXPECT_EQ(OrigineEcranY, 300 * 15);
  EXPECT_EQ(a.miseEnPage, 1);
  EXPECT_EQ(a.boutons.size(), 1U) << "redrawn";
  EXPECT_EQ(a.image.Image().size(), QSize(900, 600));
}

TEST(MetEnPage, TheOldContentIsShownMeanwhile) {
  DeuxCarres();
  Atelier a;
  const QImage avant = a.image.Image();
  a.image.resize(900, 600);
  essai::Evenements();
  const QImage vue = a.image.grab().toImage().convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(vue.copy(100, 100, 400, 250), avant.copy(100, 100, 400, 250));
  EXPECT_EQ(vue.pixelColor(880, 580), QColor(Qt::white)) << "paper where nothing has been drawn yet";
  a.image.MetEnPage();
}

TEST(MetEnPage, ADrawingWithoutExtentShowsItsMessage) {
  essai::AjouteSequence("AA", {{5, 5}, {5, 5}});
  EncombrementGeneral();
  essai::Attend("F_Representation", "lib005");  // on showing
  ImagePB1 image;
  essai::Montre(image, 300, 200);
  essai::Attend("F_Representation", "lib005");
  image.resize(400, 300);
  image.MetEnPage();
  EXPECT_EQ(essai::Boites().size(), 2U);
  EXPECT_EQ(NumeroInstantane(), 0) << "no Dessin";
}

TEST(MetEnPage, BeingShownAgainChangesNothing) {
  DeuxCarres();
  Atelier a;
  Vue = DeplaceVue(Vue, 300, 0);
  const EtatVue vue = Vue;
  a.image.hide();
  a.image.show();
  essai::Evenements();
  EXPECT_EQ(Vue, vue);
  EXPECT_EQ(NumeroInstantane(), 1);
}

TEST(MetEnPage, WaitsForAPass) {
  DeuxCarres();
  Atelier a;
  a.image.resize(900, 600);
  {
    const Passe passe;
    a.image.MetEnPage();
    EXPECT_EQ(a.miseEnPage, 0);
  }
  a.image.MetEnPage();
  EXPECT_EQ(a.miseEnPage, 1);
}

TEST(Acces, ThePictureHasANameAndADescriptionAndTakesTheKeyboard) {
  const ImagePB1 image;
  EXPECT_EQ(image.objectName(), QStringLiteral("PB1"));
  EXPECT_FALSE(image.accessibleName().isEmpty());
  EXPECT_FALSE(image.accessibleDescription().isEmpty());
  EXPECT_EQ(image.focusPolicy(), Qt::StrongFocus);
}

}  // namespace
