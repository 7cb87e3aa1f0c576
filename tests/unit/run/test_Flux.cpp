// Random jobs on the virtual board, which knows the bytes alone, streamed and stored: place, time, stop.
#include <numeric>

#include "tests/unit/run/FluxEssai.h"

namespace {

using namespace ovelin;
using essai::Flux;
using zenikcom::Axes3;

using essai::Voie;

class FluxVoies : public testing::TestWithParam<Voie> {};
INSTANTIATE_TEST_SUITE_P(Voies, FluxVoies, testing::Values(Voie::Flux, Voie::Liste),
                         [](const auto& v) { return v.param == Voie::Flux ? "Streamed" : "Stored"; });

TEST_P(FluxVoies, TwoHundredJobsEndWhereTheyWerePlannedAndAreFollowedToTheStep) {
  std::mt19937 alea(10);
  int faits = 0;
  while (faits < 200 && !HasFailure()) {
    SCOPED_TRACE(faits);
    Marche = EtatRun{};
    Flux f(true, essai::TableDe(6, 5), faits % 2 == 0 ? 64 : 8);
    essai::TableAuHasard(alea, 60);
    f.Prepare(GetParam());
    if (NbDeplacements == 0) continue;
    CdeZENIK->FixePosition(3.3, -7.1, 12);
    const Axes3 depart = Flux::PasDuProgramme();
    f.carte->Place(depart);
    f.SuitPlace();
    ASSERT_TRUE(f.Joue());
    essai::VerifieJob(f, depart);
    ++faits;
  }
}

TEST_P(FluxVoies, ForeseenTimeOfAJobIsThatOfTheBoard) {
  std::mt19937 alea(12);
  for (const int multiplicateur : {1, 2, 6, 10}) {
    for (const int pente : {1, 5, 8}) {
      Marche = EtatRun{};
      Flux f(true, essai::TableDe(multiplicateur, pente));
      essai::TableAuHasard(alea, 60);
      const double prevu = f.Prepare(GetParam());
      ASSERT_TRUE(f.Joue());
      EXPECT_NEAR(std::accumulate(f.durees.begin(), f.durees.end(), 0.0), prevu, prevu * 1e-6);
      EXPECT_LT(essai::CompareTemps(f).ticks, essai::UnTick);
    }
  }
}

TEST_P(FluxVoies, JobOfFewerThanSevenRecordsStartsAsWell) {
  Flux f(true, essai::TableDe(6, 5));
  Plan = EtatPlan{};
  TableDecoupe.resize(3);
  TableDecoupe[2].dX = 400;
  TableDecoupe[2].Vitesse = 5;
  NbDeplacements = 2;
  f.Prepare(GetParam());
  ASSERT_TRUE(f.Joue());
  EXPECT_EQ(f.carte->Lieu(), (Axes3{400, 0, 0}));
}

// --- stop -------------------------------------------------------------------------------------------------------

// A job on the clock; at a moment of its own it is stopped. The place of the reader is that of the board.
void ArreteAuHasard(std::mt19937& alea, Voie voie, bool rampe) {
  Marche = EtatRun{};
  Flux f(false, essai::TableDe(6, 5));
  essai::TableAuHasard(alea, 25);
  f.Prepare(voie);
  if (NbDeplacements == 0) return;
  // Odd and even starts round a half differently.
  CdeZENIK->FixePosition(static_cast<double>(alea() % 100) / 200, -0.005, 0);
  f.carte->Place(Flux::PasDuProgramme());
  const std::int64_t delai = static_cast<std::int64_t>(alea() % 20'000) * 1'000'003;
  f.pas = 1'000'003 * static_cast<std::int64_t>(1 + alea() % 40);
  std::int64_t moment = -1;
  f.aChaquePassage = [&] {
    if (f.carte->Compteurs().commences == 0) return;
    if (moment < 0) moment = f.heure + delai;
    if (f.heure >= moment) StopDemande = Vrai;
  };
  ASSERT_TRUE(f.Joue());
  f.Arrete(rampe);
  EXPECT_EQ(Flux::PasDuProgramme(), f.carte->Lieu());
  EXPECT_EQ(CdeZENIK->EnCours, Faux);
  const Axes3 lieu = f.carte->Lieu();
  f.heure += 100'000'000'000;
  EXPECT_EQ(f.carte->Lieu(), lieu) << "nothing runs behind a stop";
  // The next job goes on from there.
  CdeZENIK->EnvoiUSB();
  EXPECT_EQ(CdeZENIK->PasDebutX, lieu[0]);
}

TEST_P(FluxVoies, AfterAStopAtOnceReaderAndBoardAgreeExactly) {
  std::mt19937 alea(14);
  for (int n = 0; n < 150; ++n) ArreteAuHasard(alea, GetParam(), false);
}

TEST_P(FluxVoies, AfterARampedStopReaderAndBoardAgreeExactly) {
  std::mt19937 alea(15);
  for (int n = 0; n < 150; ++n) ArreteAuHasard(alea, GetParam(), true);
}

// Twenty short records with odd starts, stopped at each of their ticks.
TEST_P(FluxVoies, StopAtEveryTickOfARecordAgreesExactly) {
  const Voie voie = GetParam();
  std::mt19937 alea(16);
  for (int n = 0; n < 20; ++n) {
    Plan = EtatPlan{};
    Marche = EtatRun{};
    Flux f(false, "TB_SAV_12=20\r\nTB_SAV_15=50\r\nTB_SAV_16=50\r\nTB_SAV_13=20\r\nCombo_SAV_11=0\r\n");
    TableDecoupe.resize(3);
    TableDecoupe[2].dX = static_cast<std::int32_t>(alea() % 9) - 4;
    TableDecoupe[2].dY = static_cast<std::int32_t>(alea() % 9) + 1;
    TableDecoupe[2].Vitesse = 1;
    NbDeplacements = 2;
    f.Prepare(voie);
    if (voie == Voie::Liste) {
      f.Nourrit();
      ASSERT_TRUE(f.Memorise());
    }
    std::int32_t ticks = 1;
    for (std::int32_t k = 0; k <= ticks; ++k) {
      StopDemande = Faux;
      const std::int32_t x = n % 2 == 0 ? 1 : -3;
      CdeZENIK->FixePosition(x * CdeZENIK->MmParPasX(), -1 * CdeZENIK->MmParPasY(), 0);
      f.carte->Place(Flux::PasDuProgramme());
      if (voie == Voie::Liste) {
        ASSERT_TRUE(f.Lance());
      } else {
        CdeZENIK->EnvoiUSB();
        f.Nourrit();
        ASSERT_TRUE(CdeZENIK->CommandeDATAend());
      }
      ticks = TableDecoupe[1].Ticks;
      f.heure += k * std::int64_t{100'000};  // a tick lasts 100 us
      f.Arrete(false);
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

// Rows of 0.5 mm in `ticks` ticks and one more each, so that each record that has run tells its number.
void PoseLignes(int nombre, double ticks) {
  Plan = EtatPlan{};
  TableDecoupe.resize(static_cast<std::size_t>(nombre) + 1);
  for (std::size_t i = 1; i < TableDecoupe.size(); ++i) {
    TableDecoupe[i].dX = 50;
    TableDecoupe[i].Vitesse = static_cast<float>(5000 / (ticks - 0.5 + static_cast<double>(i)));
  }
  NbDeplacements = nombre;
}

// Another job lies in the flash memory, as long as the new one and longer: not one record of it may ever run.
void MemoriseAncien(Flux& f) {
  ModeEnvoiTable = 2;
  ListeFlash.assign(1, 0);
  PoseLignes(60, 1500);
  f.Nourrit();
  ASSERT_TRUE(f.Memorise());
}

// Forty records of 1,000 ticks and more, stopped where the program finds that something is wrong.
Bilan JoueAvecFaute(Voie voie, const std::vector<zenikcom::Faute>& fautes) {
  Marche = EtatRun{};
  Flux f(false,
         "TB_SAV_0=1\r\nTB_SAV_3=100\r\nCombo_SAV_12=0\r\nTB_SAV_12=50\r\nTB_SAV_15=50\r\nCombo_SAV_11=0\r\n");
  f.voie = voie;
  if (voie == Voie::Liste) MemoriseAncien(f);
  PoseLignes(40, 1000);
  ListeFlash.assign(1, 0);
  ModeEnvoiTable = voie == Voie::Liste ? 2 : 0;
  f.pas = 100'000'000;
  const std::int64_t avant = f.carte->Compteurs().echanges;
  std::vector<zenikcom::Faute> decalees = fautes;
  for (auto& faute : decalees) faute.echange += avant;
  f.carte->Fautes(decalees);
  const std::int64_t debut = f.heure;
  const bool joue = f.Joue();
  if (!joue || Flux::Arrete()) {
    if (CdeZENIK->NbTicks != 0) f.Arrete(false);
  }
  Bilan bilan;
  bilan.fini = joue && StopDemande == Faux && CdeZENIK->TravailIncertain == Faux;
  bilan.echanges = f.carte->Compteurs().echanges - avant;
  EXPECT_LT(static_cast<double>(f.heure - debut) / 1e9, 41 * 0.105 + 34 * 0.1 + 5) << "the job lasts 4.1 s";
  EXPECT_LE(f.temoin.echangeMaxi, zenikcom::DureeMaxi);
  // One round of events and one exchange later than the two seconds.
  EXPECT_LE(f.temoin.attenteMaxi, 2'000'000'000 + f.pas + zenikcom::DureeMaxi + 5'000'000);
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

class Fautes : public testing::TestWithParam<Voie> {};
INSTANTIATE_TEST_SUITE_P(Voies, Fautes, testing::Values(Voie::Flux, Voie::Liste),
                         [](const auto& v) { return v.param == Voie::Flux ? "Streamed" : "Stored"; });

TEST_P(Fautes, JobWithoutAFaultIsDone) {
  const Bilan bilan = JoueAvecFaute(GetParam(), {});
  EXPECT_TRUE(bilan.fini);
  EXPECT_GT(bilan.echanges, 60);
}

TEST_P(Fautes, NoFaultAtAnyExchangeRunsARecordTwiceOrHangs) {
  const std::int64_t echanges = JoueAvecFaute(GetParam(), {}).echanges;
  for (const auto& [genre, nom] : zenikcom::NomsFautes) {
    int finis = 0;
    for (std::int64_t i = 1; i <= echanges; ++i) {
      SCOPED_TRACE(std::string(nom) + " at exchange " + std::to_string(i));
      finis += JoueAvecFaute(GetParam(), {{i, genre, i % 2 == 0 ? 0.5 : 0.0}}).fini ? 1 : 0;
      if (HasFailure()) return;
    }
    // A question that got no answer, or a record that was refused, ends no job; a page that was not confirmed does.
    if (genre != zenikcom::GenreFaute::Debranche) {
      EXPECT_GT(finis, 10) << nom;
    }
    if (genre == zenikcom::GenreFaute::Refuse && GetParam() == Voie::Flux) {
      EXPECT_EQ(finis, echanges) << nom;
    }
  }
}

}  // namespace
