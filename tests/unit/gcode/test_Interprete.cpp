// One line after the other, with the moves and machine words that they lead to.
#include <cmath>

#include "gcode/Interprete.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

// Writes down what the interpreter tells.
class Journal : public Recepteur {
 public:
  void Deplace(const MouvementLigne& m) override { mouvements.push_back(m); }
  void Machine(MotMachine mot) override { machine.push_back(mot); }
  void Pause(double secondes) override { pauses.push_back(secondes); }
  void Broche(double tours) override { broche.push_back(tours); }
  void Rejete(const Mot& mot) override { rejets.emplace_back(mot.texte); }
  void Arc(DefautArc defaut) override { defauts.push_back(defaut); }

  std::vector<MouvementLigne> mouvements;
  std::vector<MotMachine> machine;
  std::vector<double> pauses, broche;
  std::vector<std::string> rejets;
  std::vector<DefautArc> defauts;
};

struct Essai {
  EtatModal etat;
  Journal journal;
  bool tout = true;  // no line failed

  // The words go in whatever the judge says of the line: behind it the dialect is wider.
  Essai& Ligne(const std::string& ligne) {
    std::vector<Mot> mots;
    JugeLigne(ligne, mots);
    tout = InterpreteMots(mots, etat, journal) && tout;
    return *this;
  }
  [[nodiscard]] Lieu Dernier() const { return journal.mouvements.back().arrivee; }
};

TEST(Interprete, MovesToTheTargetInMillimetres) {
  Essai e;
  e.Ligne("F600").Ligne("G01 X1 Y2").Ligne("Z-3");
  ASSERT_EQ(e.journal.mouvements.size(), 2U);
  EXPECT_EQ(e.journal.mouvements[0].depart, (Lieu{0, 0, 0}));
  EXPECT_EQ(e.journal.mouvements[0].arrivee, (Lieu{1, 2, 0}));
  EXPECT_EQ(e.journal.mouvements[1].depart, (Lieu{1, 2, 0}));
  EXPECT_EQ(e.journal.mouvements[1].arrivee, (Lieu{1, 2, -3}));
  EXPECT_EQ(e.journal.mouvements[0].vitesse, 10) << "600 mm a minute";
}

TEST(Interprete, ABareG01IsAMoveOfNoLength) {
  Essai e;
  e.Ligne("X5").Ligne("G01 ");
  ASSERT_EQ(e.journal.mouvements.size(), 2U);
  EXPECT_EQ(e.journal.mouvements[1].depart, e.journal.mouvements[1].arrivee);
  EXPECT_EQ(e.etat.ModeG, 1);
}

TEST(Interprete, AWordThatIsNoMotionMovesNothing) {
  Essai e;
  e.Ligne("G71").Ligne("G90").Ligne("F100").Ligne("N10 T3 S200").Ligne("M02").Ligne("M30").Ligne("G04");
  EXPECT_TRUE(e.journal.mouvements.empty());
  EXPECT_EQ(e.journal.broche, std::vector<double>{200}) << "told, and nothing is sent for it";
  EXPECT_TRUE(e.journal.machine.empty());
}

TEST(Interprete, IsRapidFromG00ToG01) {
  Essai e;
  e.Ligne("F60").Ligne("G00 X1").Ligne("Y1").Ligne("G01 X2");
  ASSERT_EQ(e.journal.mouvements.size(), 3U);
  EXPECT_EQ(e.journal.mouvements[0].vitesse, 9999.0);
  EXPECT_TRUE(e.journal.mouvements[1].rapide);
  EXPECT_FALSE(e.journal.mouvements[2].rapide);
  EXPECT_EQ(e.journal.mouvements[2].vitesse, 1);
}

TEST(Interprete, BeginsWithoutRapidAndWithoutSpeed) {
  Essai e;
  e.Ligne("X1");
  EXPECT_FALSE(e.journal.mouvements.at(0).rapide);
  EXPECT_EQ(e.journal.mouvements[0].vitesse, 0);
}

TEST(Interprete, ReadsInchesAtATenthOfTheirSize) {
  for (const char* mot : {"G20", "G70"}) {
    Essai e;
    e.Ligne(mot).Ligne("X1 F60");
    EXPECT_DOUBLE_EQ(e.Dernier().X, 2.54) << mot;
    EXPECT_EQ(e.etat.VitesseF, 1) << "the scale does not act on F";
  }
  Essai e;
  e.Ligne("G20").Ligne("G21").Ligne("X1");
  EXPECT_EQ(e.Dernier().X, 1);
}

TEST(Interprete, TakesWordsFromLeftToRight) {
  Essai e;
  e.Ligne("X1 G20 Y1");
  EXPECT_EQ(e.Dernier(), (Lieu{1, 2.54, 0}));
}

TEST(Interprete, InRelativeModeAMissingWordIsNoIncrement) {
  Essai e;
  e.Ligne("X10 Y10").Ligne("G91").Ligne("X1").Ligne("Y2").Ligne("G01");
  ASSERT_EQ(e.journal.mouvements.size(), 4U);
  EXPECT_EQ(e.journal.mouvements[1].arrivee, (Lieu{11, 10, 0}));
  EXPECT_EQ(e.journal.mouvements[2].arrivee, (Lieu{11, 12, 0}));
  EXPECT_EQ(e.journal.mouvements[3].arrivee, (Lieu{11, 12, 0}));
}

TEST(Interprete, BackInAbsoluteModeTheTargetBeginsAtThePosition) {
  Essai e;
  e.Ligne("G91").Ligne("X5 Y5").Ligne("X5").Ligne("G90").Ligne("Y1");
  EXPECT_EQ(e.Dernier(), (Lieu{10, 1, 0}));
  Essai memeLigne;
  memeLigne.Ligne("G91").Ligne("X5 Y5").Ligne("G90 Z2");
  EXPECT_EQ(memeLigne.Dernier(), (Lieu{5, 5, 2}));
}

TEST(Interprete, G92MakesThePresentPlaceTheOrigin) {
  Essai e;
  e.Ligne("X10 Y20 Z30").Ligne("G92").Ligne("X1");
  EXPECT_EQ(e.journal.mouvements.back().depart, (Lieu{0, 0, 0}));
  EXPECT_EQ(e.Dernier(), (Lieu{1, 0, 0}));
}

TEST(Interprete, G92WithWordsMovesToThem) {
  Essai e;
  e.Ligne("X10").Ligne("G92 X3");
  EXPECT_EQ(e.Dernier(), (Lieu{3, 0, 0}));
  Essai devant;
  devant.Ligne("X10").Ligne("X4 G92");
  EXPECT_EQ(devant.Dernier(), (Lieu{0, 0, 0}));
}

TEST(Interprete, WaitsByPWithoutG04AndNotBelowZero) {
  Essai e;
  e.Ligne("P1.5").Ligne("G04 P2").Ligne("P0").Ligne("P-1");
  EXPECT_EQ(e.journal.pauses, (std::vector<double>{1.5, 2}));
}

TEST(Interprete, TellsMachineWordsInTheirOrder) {
  Essai e;
  e.Ligne("M03 M05").Ligne("M06").Ligne("M07").Ligne("M09");
  EXPECT_EQ(e.journal.machine,
            (std::vector{MotMachine::M03, MotMachine::M05, MotMachine::M06, MotMachine::M07, MotMachine::M09}));
}

TEST(Interprete, GoesOnBehindTheEndWords) {
  Essai e;
  e.Ligne("M02").Ligne("X1").Ligne("M30").Ligne("X2");
  EXPECT_EQ(e.journal.mouvements.size(), 2U);
}

TEST(Interprete, RejectsAWordAndTakesTheNext) {
  Essai e;
  e.Ligne("G17 M08 E5 X2");
  EXPECT_EQ(e.journal.rejets, (std::vector<std::string>{"G17 ", "M08 ", "E5 "}));
  EXPECT_EQ(e.Dernier().X, 2);
}

TEST(Interprete, MakesAnArcOfChordsAndALastStraightMove) {
  Essai e;
  e.Ligne("F60").Ligne("X10").Ligne("G02 X0 Y10 R10");
  // a quarter circle has less than two whole radians: one radian in steps of 2 acos(1 - 0.001)
  const double pas = 2 * std::acos(1 - 0.01 / 10);
  const auto n = static_cast<std::size_t>(std::nearbyint(1 / pas));
  ASSERT_EQ(e.journal.mouvements.size(), 1 + n + 1);
  for (std::size_t k = 1; k <= n; ++k) {
    const Lieu& p = e.journal.mouvements[k].arrivee;
    EXPECT_NEAR(std::hypot(p.X, p.Y), 10, 1e-9);
    EXPECT_NEAR(std::atan2(p.Y, p.X), static_cast<double>(k) * pas, 1e-9);
    EXPECT_TRUE(e.journal.mouvements[k].arc);
  }
  EXPECT_EQ(e.Dernier(), (Lieu{0, 10, 0}));
  EXPECT_EQ(e.etat.ModeG, 2);
}

TEST(Interprete, DoesNotTellTheTwoDirectionsOfArcsApart) {
  Essai deux, trois;
  deux.Ligne("X10").Ligne("G02 X0 Y10 R10");
  trois.Ligne("X10").Ligne("G03 X0 Y10 R10");
  ASSERT_EQ(deux.journal.mouvements.size(), trois.journal.mouvements.size());
  for (std::size_t i = 0; i < deux.journal.mouvements.size(); ++i) {
    EXPECT_EQ(deux.journal.mouvements[i].arrivee, trois.journal.mouvements[i].arrivee);
  }
}

TEST(Interprete, AnArcWithoutARadiusFailsItsLine) {
  for (const char* ligne : {"G02 X0 Y10 I-10 J0", "G03 X1 R-5", "G02 X1 R0.001"}) {
    Essai e;
    e.Ligne("X10").Ligne(ligne);
    EXPECT_FALSE(e.tout) << ligne;
    EXPECT_EQ(e.journal.mouvements.size(), 1U) << ligne;
    EXPECT_EQ(e.etat.ActuelX, 10) << ligne;
  }
}

TEST(Interprete, TheRadiusOfALineDoesNotLastToTheNext) {
  Essai e;
  e.Ligne("X10").Ligne("G02 X0 Y10 R10").Ligne("G02 X-10 Y0");
  EXPECT_FALSE(e.tout);
  EXPECT_EQ(e.etat.ArcR, 0);
}

TEST(Interprete, TellsAnArcThatNoCircleCanMakeAndMovesStraight) {
  Essai e;
  e.Ligne("G02 X100 R5");
  EXPECT_EQ(e.journal.defauts, std::vector{DefautArc::SansCercle});
  ASSERT_EQ(e.journal.mouvements.size(), 1U);
  EXPECT_EQ(e.Dernier().X, 100);
}

}  // namespace
}  // namespace essai
