// What was cut, whatever happened on the way: stopped at every record and at random ticks, resumed, and every fault
// at every exchange of a job.
#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <sstream>

#include "tests/unit/run/UnRun.h"

namespace essai {
namespace {

// A straight piece of the path, steps.
struct Piece {
  Axes3 a, b;
};

std::vector<Piece> Pieces(const std::vector<Axes3>& parcours) {
  std::vector<Piece> pieces;
  for (std::size_t i = 1; i < parcours.size(); ++i) pieces.push_back({parcours[i - 1], parcours[i]});
  return pieces;
}

// Cuts: below the surface at one end at least.
std::vector<Piece> Coupes(const std::vector<Piece>& pieces) {
  std::vector<Piece> coupes;
  for (const Piece& p : pieces) {
    if ((p.a[2] < 0 || p.b[2] < 0) && p.a != p.b) coupes.push_back(p);
  }
  return coupes;
}

// Where a place lies along a piece, 0 to 1, and how far off it, steps.
std::pair<double, double> Projete(const Axes3& lieu, const Piece& p) {
  std::array<double, 3> d{}, v{};
  double carre = 0, produit = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    d[i] = static_cast<double>(p.b[i] - p.a[i]);
    v[i] = static_cast<double>(lieu[i] - p.a[i]);
    carre += d[i] * d[i];
    produit += d[i] * v[i];
  }
  const double t = carre > 0 ? std::clamp(produit / carre, 0.0, 1.0) : 0;
  double ecart = 0;
  for (std::size_t i = 0; i < 3; ++i) ecart += (v[i] - t * d[i]) * (v[i] - t * d[i]);
  return {t, std::sqrt(ecart)};
}

// The same along the whole line of the piece: below 0 and above 1, too.
std::pair<double, double> ProjeteLigne(const Axes3& lieu, const Piece& p) {
  double carre = 0, produit = 0, distance = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const auto d = static_cast<double>(p.b[i] - p.a[i]);
    const auto v = static_cast<double>(lieu[i] - p.a[i]);
    carre += d * d;
    produit += d * v;
    distance += v * v;
  }
  return {produit / carre, std::sqrt(std::max(0.0, distance - produit * produit / carre))};
}

double Longueur(const Piece& p) {
  return std::hypot(static_cast<double>(p.b[0] - p.a[0]), static_cast<double>(p.b[1] - p.a[1]),
                    static_cast<double>(p.b[2] - p.a[2]));
}

constexpr double Tolerance = 2;  // steps: a line in whole steps leaves its ideal by one on each axis

bool Vertical(const Piece& p) { return p.a[0] == p.b[0] && p.a[1] == p.b[1]; }

// Nothing is left uncut of `voulues`, and nothing was cut beside them. "" when all is well.
std::string CompareCoupes(const std::vector<Piece>& voulues, const std::vector<Piece>& faites) {
  std::ostringstream faute;
  for (const Piece& v : voulues) {
    std::vector<std::pair<double, double>> intervalles;
    for (const Piece& f : faites) {
      const auto [ta, ea] = ProjeteLigne(f.a, v);
      const auto [tb, eb] = ProjeteLigne(f.b, v);
      if (ea <= Tolerance && eb <= Tolerance) intervalles.emplace_back(std::min(ta, tb), std::max(ta, tb));
    }
    std::sort(intervalles.begin(), intervalles.end());
    double couvert = 0;
    const double marge = Tolerance / std::max(1.0, Longueur(v));
    for (const auto& [de, a] : intervalles) {
      if (de <= couvert + marge) couvert = std::max(couvert, a);
    }
    if (couvert < 1 - marge) faute << "uncut beyond " << couvert << " of a piece; ";
  }
  for (const Piece& f : faites) {
    const bool permise = std::any_of(voulues.begin(), voulues.end(), [&](const Piece& v) {
      if (Projete(f.a, v).second <= Tolerance && Projete(f.b, v).second <= Tolerance) return true;
      // The way back: straight down over a place of the job, no deeper than it.
      if (!Vertical(f)) return false;
      Axes3 fond = f.a;
      fond[2] = std::min(v.a[2], v.b[2]);
      return fond[2] <= std::min(f.a[2], f.b[2]) + 2 && Projete(fond, v).second <= Tolerance;
    });
    if (!permise) faute << "cut beside the job at " << f.a[0] << ',' << f.a[1] << ',' << f.a[2] << "; ";
  }
  return faute.str();
}

class UneReprise : public UnRun {
 protected:
  UneReprise() { pas_ = 0.004; }
  // The job without a stop: its cuts, its records, its time.
  void SansArret() {
    Branche();
    const double debut = heure_;
    ASSERT_TRUE(Lance());
    duree_ = heure_ - debut;
    records_ = NbDeplacements;
    voulues_ = Coupes(Pieces(carte_->Parcours()));
    ASSERT_GT(voulues_.size(), 9U);
  }
  void Reprend(const std::string& quoi) {
    for (int fois = 0; fois < 5 && FaceCourante() == FaceFraisage::Reprise; ++fois) {
      ASSERT_TRUE(ReprendFraisage("3")) << quoi;
      aChaqueTour_ = nullptr;
    }
    EXPECT_EQ(Pas(), (Axes3{0, 0, 0})) << quoi;
    EXPECT_EQ(Compte(), Pas()) << quoi;
    EXPECT_EQ(CompareCoupes(voulues_, Coupes(Pieces(carte_->Parcours()))), "") << quoi;
  }
  // A stop once that record has begun, or that long behind the start.
  std::function<void()> ArretAu(std::int64_t record, Drapeau rampe) {
    return [this, record, rampe, fait = false]() mutable {
      if (fait || !RunActif || carte_->Compteurs().commences < record) return;
      fait = true;
      StopDemande = Vrai;
      ArretRampe = rampe;
    };
  }

  std::vector<Piece> voulues_;
  std::int32_t records_ = 0;
  double duree_ = 0;
};

TEST_F(UneReprise, StoppedAtEveryRecordNothingIsLeftOutAndNothingIsCutBeside) {
  SansArret();
  for (const std::uint8_t mode : {EnvoiDirect, MemoireEtFraisage}) {
    for (const Drapeau rampe : {Vrai, Faux}) {
      for (std::int32_t record = 1; record <= records_; ++record) {
        Branche();
        aChaqueTour_ = ArretAu(record, rampe);
        ASSERT_TRUE(Lance(mode));
        aChaqueTour_ = nullptr;
        Reprend("mode " + std::to_string(mode) + (rampe != Faux ? " ramp" : " now") + " at record " +
                std::to_string(record));
        if (HasFailure()) return;
      }
    }
  }
}

TEST_F(UneReprise, StoppedAtTwoHundredRandomTicksOnceOrTwiceItComesToTheSame) {
  SansArret();
  std::mt19937 alea(8);
  int deuxFois = 0;
  for (int n = 0; n < 200; ++n) {
    Branche();
    pas_ = 0.0007 * static_cast<double>(1 + alea() % 9);
    const double apres = duree_ * static_cast<double>(alea() % 10'000) / 10'000;
    const Drapeau rampe = EnDrapeau(alea() % 2 == 0);
    const bool encore = alea() % 2 == 0;
    StoppeApres(apres, rampe);
    ASSERT_TRUE(Lance(alea() % 3 == 0 ? MemoireEtFraisage : EnvoiDirect));
    aChaqueTour_ = nullptr;
    if (encore && FaceCourante() == FaceFraisage::Reprise) {
      StoppeApres(static_cast<double>(alea() % 5000) / 1000, EnDrapeau(alea() % 2 == 0));
      ++deuxFois;
    }
    Reprend("stop " + std::to_string(n) + " after " + std::to_string(apres) + " s");
    if (HasFailure()) return;
  }
  EXPECT_GT(deuxFois, 50);
}

TEST_F(UneReprise, StoppedAtTheLastTickItEndsExactly) {
  SansArret();
  for (const std::uint8_t mode : {EnvoiDirect, MemoireEtFraisage}) {
    for (const double avant : {0.03, 0.01, 0.004, 0.0015, 0.0005, 0.0001}) {
      const std::string quoi = "mode " + std::to_string(mode) + " last " + std::to_string(avant) + " s";
      Branche();
      pas_ = 0.0001;
      bool arrete = false;
      aChaqueTour_ = [&] {
        if (!RunActif || StopDemande != Faux || carte_->Compteurs().commences < records_) return;
        arrete = CdeZENIK->TicksRestants <= avant * 10'000;
        if (arrete) StopDemande = Vrai;
      };
      ASSERT_TRUE(Lance(mode)) << quoi;
      aChaqueTour_ = nullptr;
      EXPECT_TRUE(arrete) << quoi;
      Reprend(quoi);
    }
  }
}

// Where a run ends by its fault the text says so, and what is resumed ends exactly; or the text says that the place
// is lost.
class UnePanne : public UneReprise {
 protected:
  UnePanne() {
    pas_ = 0.08;
    TraceDecale.resize(1);  // the square alone
  }
  // Every fault at every exchange, an unplugged board for each of these seconds.
  void Essaie(std::uint8_t mode, const std::vector<double>& absences) {
    SansArret();
    Branche();
    ASSERT_TRUE(Lance(mode));
    const std::int64_t echanges = carte_->Compteurs().echanges;
    ASSERT_GT(echanges, 60);
    for (const auto& [genre, nom] : zenikcom::NomsFautes) {
      const bool debranche = genre == zenikcom::GenreFaute::Debranche;
      for (const double secondes : debranche ? absences : std::vector<double>{0}) {
        for (std::int64_t i = 1; i <= echanges; ++i) {
          Fautive(mode, {i, genre, secondes},
                  std::string(nom) + " at " + std::to_string(i) + " " + std::to_string(secondes));
          if (HasFailure()) return;
        }
      }
    }
  }
  void Fautive(std::uint8_t mode, const zenikcom::Faute& faute, const std::string& quoi) {
    Branche();
    Marche = EtatRun{};
    carte_->Fautes({faute});
    std::set<std::string> dites;
    Svc.Montre = [&](const BoiteMessage& b) {
      dites.insert(b.cle);
      return b.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok;
    };
    double plusLong = 0, dernier = heure_;
    aChaqueTour_ = [&] {
      plusLong = std::max(plusLong, heure_ - pas_ - dernier);
      dernier = heure_;
    };
    const bool lance = Lance(mode);
    aChaqueTour_ = nullptr;
    ASSERT_FALSE(RunActif || OperationCarte) << quoi;
    EXPECT_LE(plusLong, 0.1) << quoi << ": nobody was let in meanwhile";
    if (!lance) {
      EXPECT_TRUE(dites.contains("91")) << quoi;
      return;
    }
    heure_ += 20;
    if (AttendCarte) {
      EXPECT_TRUE(dites.contains("Run_liaison")) << quoi;
      ASSERT_TRUE(RetrouveCarte()) << quoi;
    }
    if (PlacePerdue) {
      ++perdues_;
      EXPECT_FALSE(ReprendFraisage("3")) << quoi;
      EXPECT_TRUE(dites.contains("Run_place")) << quoi;
      AbandonneFraisage();
      return;
    }
    if (carte_->Compteurs().ticks == 0 && FaceCourante() == FaceFraisage::Depart) {
      ++refusees_;
      EXPECT_FALSE(dites.empty()) << quoi << ": a job that was not begun is told";
      ASSERT_TRUE(Lance(mode)) << quoi << ": and can be begun";
    } else {
      ++exactes_;
    }
    Reprend(quoi);
  }

  int perdues_ = 0, exactes_ = 0;
  int refusees_ = 0;  // told, nothing moved, begun anew
};

TEST_F(UnePanne, AtAnyExchangeEndsExactlyOrSaysThatThePlaceIsLost) {
  Essaie(EnvoiDirect, {0.1, 1, 10});
  EXPECT_GT(exactes_, 10 * perdues_);
  EXPECT_EQ(refusees_, 0);
}

TEST_F(UnePanne, AtAnyExchangeOfAStoredJobEndsExactlyOrIsToldBeforeItBegins) {
  Essaie(MemoireEtFraisage, {0.1, 1, 10});
  EXPECT_GT(exactes_, 10 * perdues_);
  EXPECT_GT(refusees_, 0);
}

}  // namespace
}  // namespace essai
