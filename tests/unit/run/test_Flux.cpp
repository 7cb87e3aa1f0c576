// Random jobs on the virtual board, which knows the bytes alone: place, time, stop.
#include <algorithm>
#include <cmath>
#include <numeric>

#include "tests/unit/run/FluxEssai.h"

namespace {

using namespace ovelin;
using essai::Flux;
using zenikcom::Axes3;

// Foreseen and run agree to one tick of the slowest level of the record; rows too short to climb are counted apart.
int CompareTemps(const Flux& f) {
  const auto& joues = f.carte->Joues();
  EXPECT_EQ(joues.size(), f.durees.size());
  const TableFrequences& table = CdeZENIK->Parametres().TableFreq;
  int courtes = 0;
  for (std::size_t i = 0; i < std::min(joues.size(), f.durees.size()); ++i) {
    const Deplacement& l = TableDecoupe[i + 1];
    const Mouvement m = CdeZENIK->Calcule({l.dX, l.dY, l.dZ}, l.Vitesse);
    if (m.rampe && m.Descente < 0) {
      ++courtes;
      continue;
    }
    const double tick =
        m.rampe ? table[static_cast<std::size_t>(m.N)].Periode / 6e6 : 1e-4 / CdeZENIK->Parametres().Multiplicateur;
    EXPECT_NEAR(joues[i].secondes, f.durees[i], tick * 1.0001 + f.durees[i] * 1e-7) << "record " << i + 1;
  }
  return courtes;
}

TEST(Flux, TwoHundredJobsEndWhereTheyWerePlanned) {
  std::mt19937 alea(10);
  for (int n = 0; n < 200; ++n) {
    Marche = EtatRun{};
    Flux f(true, essai::TableDe(6, 5), n % 2 == 0 ? 64 : 8);
    essai::TableAuHasard(alea, 60);
    TempsDecoupe();
    f.Compacte();
    CdeZENIK->FixePosition(3.3, -7.1, 12);
    const Axes3 depart = Flux::PasDuProgramme();
    f.carte->Place(depart);
    ASSERT_TRUE(CdeZENIK->EnvoiUSB());
    f.Nourrit();
    f.Finit();
    const Axes3 somme = Flux::Somme(NbDeplacements);
    const Axes3 attendu{depart[0] + somme[0], depart[1] + somme[1], depart[2] + somme[2]};
    ASSERT_EQ(f.carte->Compteurs().etat, zenikcom::EtatCarte::Fini) << n;
    ASSERT_EQ(f.carte->Lieu(), attendu) << n;
    ASSERT_EQ(Flux::PasDuProgramme(), attendu) << n;
    CompareTemps(f);
  }
}

TEST(Flux, ForeseenTimeOfAJobIsThatOfTheBoard) {
  std::mt19937 alea(12);
  for (const int multiplicateur : {1, 2, 6, 10}) {
    for (const int pente : {1, 5, 8}) {
      Marche = EtatRun{};
      Flux f(true, essai::TableDe(multiplicateur, pente));
      essai::TableAuHasard(alea, 60);
      const double prevu = TempsDecoupe();
      f.Compacte();
      CdeZENIK->EnvoiUSB();
      f.Nourrit();
      f.Finit();
      EXPECT_NEAR(std::accumulate(f.durees.begin(), f.durees.end(), 0.0), prevu, prevu * 1e-6);
      CompareTemps(f);
    }
  }
}

TEST(Flux, StoredJobsEndWhereTheyWerePlanned) {
  std::mt19937 alea(11);
  for (int n = 0; n < 40; ++n) {
    Marche = EtatRun{};
    Flux f(true, essai::TableDe(6, 5));
    essai::TableAuHasard(alea, 60);
    ModeEnvoiTable = 2;
    ListeFlash.assign(1, 0);
    TempsDecoupe();
    f.Compacte();
    if (NbDeplacements == 0) continue;
    f.Nourrit();
    ListeFlash.back() = 128;
    CdeZENIK->Flash_Tab(ListeFlash);
    ASSERT_EQ(CdeZENIK->PagesNonConfirmees, 0);
    ASSERT_TRUE(CdeZENIK->EnvoiFLASH(0, 0));
    ASSERT_TRUE(CdeZENIK->GoBuffer());
    for (std::int32_t i = 1; i <= NbDeplacements; ++i) {
      Deplacement& l = TableDecoupe[static_cast<std::size_t>(i)];
      l.Ticks = CdeZENIK->Calcule({l.dX, l.dY, l.dZ}, l.Vitesse).Ticks;
    }
    CdeZENIK->DemandeInformation();
    while (CdeZENIK->EnCours != Faux) CdeZENIK->DemandeInformation();
    ASSERT_EQ(f.carte->Lieu(), Flux::Somme(NbDeplacements)) << n;
    ASSERT_EQ(Flux::PasDuProgramme(), Flux::Somme(NbDeplacements)) << n;
    CompareTemps(f);
  }
}

TEST(Flux, PositionIsThatOfTheBoardToAStepAtTheEndOfEachRecord) {
  std::mt19937 alea(13);
  Flux f(true, essai::TableDe(6, 5));
  essai::TableAuHasard(alea, 200);
  TempsDecoupe();
  f.Compacte();
  CdeZENIK->EnvoiUSB();
  int vues = 0;
  f.aChaquePassage = [&] {
    CdeZENIK->DemandeInformation();
    const Axes3 ici = Flux::PasDuProgramme(), la = f.carte->Lieu();
    for (std::size_t axe = 0; axe < 3; ++axe) ASSERT_LE(std::abs(ici[axe] - la[axe]), 1);
    ++vues;
  };
  f.Nourrit();
  f.Finit();
  EXPECT_GT(vues, 20);
}

TEST(Flux, JobOfFewerThanSevenRecordsStartsAsWell) {
  Flux f(true, essai::TableDe(6, 5));
  Plan = EtatPlan{};
  TableDecoupe.resize(2);
  TableDecoupe[1].dX = 400;
  TableDecoupe[1].Vitesse = 5;
  NbDeplacements = 1;
  CdeZENIK->EnvoiUSB();
  f.Nourrit();
  f.Finit();
  EXPECT_EQ(f.carte->Lieu(), (Axes3{400, 0, 0}));
}

// --- stop -------------------------------------------------------------------------------------------------------

// A job on the clock; at a moment of its own it is stopped. The place of the reader is that of the board.
void ArreteAuHasard(std::mt19937& alea, bool rampe) {
  Marche = EtatRun{};
  Flux f(false, essai::TableDe(6, 5));
  essai::TableAuHasard(alea, 25);
  TempsDecoupe();
  f.Compacte();
  // Odd and even starts round a half differently.
  CdeZENIK->FixePosition(static_cast<double>(alea() % 100) / 200, -0.005, 0);
  f.carte->Place(Flux::PasDuProgramme());
  CdeZENIK->EnvoiUSB();
  const std::int64_t moment = f.heure + static_cast<std::int64_t>(alea() % 20'000) * 1'000'003;
  f.pas = 1'000'003 * static_cast<std::int64_t>(1 + alea() % 40);
  f.aChaquePassage = [&] {
    if (f.heure >= moment) StopDemande = Vrai;
  };
  f.Nourrit();
  f.Finit();
  CdeZENIK->StopResume(rampe ? 1 : 0, rampe ? CdeZENIK->Calc_FDEC() : 0);
  EXPECT_EQ(Flux::PasDuProgramme(), f.carte->Lieu());
  EXPECT_EQ(CdeZENIK->EnCours, Faux);
  const Axes3 lieu = f.carte->Lieu();
  f.heure += 100'000'000'000;
  EXPECT_EQ(f.carte->Lieu(), lieu) << "nothing runs behind a stop";
  // The next job goes on from there.
  CdeZENIK->EnvoiUSB();
  EXPECT_EQ(CdeZENIK->PasDebutX, lieu[0]);
}

TEST(Flux, AfterAStopAtOnceReaderAndBoardAgreeExactly) {
  std::mt19937 alea(14);
  for (int n = 0; n < 150; ++n) ArreteAuHasard(alea, false);
}

TEST(Flux, AfterARampedStopReaderAndBoardAgreeExactly) {
  std::mt19937 alea(15);
  for (int n = 0; n < 150; ++n) ArreteAuHasard(alea, true);
}

// Twenty short records with odd starts, stopped at each of their ticks.
TEST(Flux, StopAtEveryTickOfARecordAgreesExactly) {
  std::mt19937 alea(16);
  for (int n = 0; n < 20; ++n) {
    Plan = EtatPlan{};
    Marche = EtatRun{};
    Flux f(false, "TB_SAV_12=20\r\nTB_SAV_15=50\r\nTB_SAV_16=50\r\nTB_SAV_13=20\r\nCombo_SAV_11=0\r\n");
    TableDecoupe.resize(2);
    TableDecoupe[1].dX = static_cast<std::int32_t>(alea() % 9) - 4;
    TableDecoupe[1].dY = static_cast<std::int32_t>(alea() % 9) + 1;
    TableDecoupe[1].Vitesse = 1;
    NbDeplacements = 1;
    std::int32_t ticks = 1;
    for (std::int32_t k = 0; k <= ticks; ++k) {
      StopDemande = Faux;
      const std::int32_t x = n % 2 == 0 ? 1 : -3;
      CdeZENIK->FixePosition(x * CdeZENIK->MmParPasX(), -1 * CdeZENIK->MmParPasY(), 0);
      f.carte->Place(Flux::PasDuProgramme());
      CdeZENIK->EnvoiUSB();
      f.Nourrit();
      ticks = TableDecoupe[1].Ticks;
      ASSERT_TRUE(CdeZENIK->CommandeDATAend());
      f.heure += k * 100'000;  // a tick lasts 100 us
      CdeZENIK->StopResume(0, 0);
      ASSERT_EQ(Flux::PasDuProgramme(), f.carte->Lieu()) << "tick " << k << " of " << ticks;
    }
    EXPECT_GT(ticks, 5);
  }
}

// --- faults -----------------------------------------------------------------------------------------------------

struct Bilan {
  bool fini = false;  // the program holds the job for done
  std::int64_t echanges = 0;
};

// Forty records of 1,000 ticks and one more each, so that each record that has run tells its number.
Bilan JoueAvecFaute(const std::vector<zenikcom::Faute>& fautes) {
  Marche = EtatRun{};
  Flux f(false,
         "TB_SAV_0=1\r\nTB_SAV_3=100\r\nCombo_SAV_12=0\r\nTB_SAV_12=50\r\nTB_SAV_15=50\r\nCombo_SAV_11=0\r\n");
  Plan = EtatPlan{};
  TableDecoupe.resize(41);
  for (std::size_t i = 1; i <= 40; ++i) {
    TableDecoupe[i].dX = 50;  // 0.5 mm in 1,000 ticks are 5 mm/s
    TableDecoupe[i].Vitesse = 5000.0F / static_cast<float>(999.5 + static_cast<double>(i));
  }
  NbDeplacements = 40;
  f.pas = 100'000'000;
  const std::int64_t avant = f.carte->Compteurs().echanges;
  std::vector<zenikcom::Faute> decalees = fautes;
  for (auto& faute : decalees) faute.echange += avant;
  f.carte->Fautes(decalees);
  const std::int64_t debut = f.heure;
  if (CdeZENIK->EnvoiUSB()) {
    f.Nourrit();
    f.Finit();
  }
  if (Flux::Arrete() && CdeZENIK->NbTicks != 0) CdeZENIK->StopResume(0, 0);
  Bilan bilan;
  bilan.fini = StopDemande == Faux && CdeZENIK->TravailIncertain == Faux;
  bilan.echanges = f.carte->Compteurs().echanges - avant;
  EXPECT_LT(static_cast<double>(f.heure - debut) / 1e9, 41 * 0.105 + 5) << "the job lasts 4.1 s";
  // Nothing runs twice, and nothing is left out in between.
  const auto& joues = f.carte->Joues();
  for (std::size_t i = 0; i < joues.size(); ++i) EXPECT_EQ(joues[i].ticks, 1001 + static_cast<std::int32_t>(i));
  if (bilan.fini) {
    EXPECT_EQ(joues.size(), 40U);
    EXPECT_EQ(Flux::PasDuProgramme(), (Axes3{2000, 0, 0}));
  }
  // What the new job clears never moves again.
  f.carte->Fautes({});
  f.carte->Debranche(false);
  f.heure += 3'000'000'000;
  const bool ouvert = CdeZENIK->EnvoiUSB();
  EXPECT_TRUE(ouvert);
  const Axes3 lieu = f.carte->Lieu();
  CdeZENIK->GoBuffer();
  f.heure += 60'000'000'000;
  EXPECT_EQ(f.carte->Lieu(), lieu);
  return bilan;
}

TEST(Fautes, JobWithoutAFaultIsDone) {
  const Bilan bilan = JoueAvecFaute({});
  EXPECT_TRUE(bilan.fini);
  EXPECT_GT(bilan.echanges, 60);
}

TEST(Fautes, NoFaultAtAnyExchangeRunsARecordTwiceOrHangs) {
  const std::int64_t echanges = JoueAvecFaute({}).echanges;
  for (const auto& [genre, nom] : zenikcom::NomsFautes) {
    int finis = 0;
    for (std::int64_t i = 1; i <= echanges; ++i) {
      SCOPED_TRACE(std::string(nom) + " at exchange " + std::to_string(i));
      finis += JoueAvecFaute({{i, genre, i % 2 == 0 ? 0.5 : 0.0}}).fini ? 1 : 0;
      if (HasFailure()) return;
    }
    // A question that got no answer, or a record that was refused, ends no job.
    if (genre != zenikcom::GenreFaute::Debranche) {
      EXPECT_GT(finis, 10) << nom;
    }
    if (genre == zenikcom::GenreFaute::Refuse) {
      EXPECT_EQ(finis, echanges) << nom;
    }
  }
}

}  // namespace
