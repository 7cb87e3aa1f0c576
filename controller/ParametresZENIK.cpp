#include "controller/ParametresZENIK.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "core/Nombres.h"
#include "machine/Module_Table.h"

namespace ovelin {

namespace {

using C = ChampsMachine;

struct ChampsAxe {
  LectureChamp transmission, pas, division, depart, rampe;
};
constexpr std::array<ChampsAxe, 3> ChampsAxes{{
    {C::TransmissionX, C::PasParTourX, C::DivisionX, C::VitesseSansRampeX, C::VitesseMaxX},
    {C::TransmissionY, C::PasParTourY, C::DivisionY, C::VitesseSansRampeY, C::VitesseMaxY},
    {C::TransmissionZ, C::PasParTourZ, C::DivisionZ, C::VitesseSansRampeZ, C::VitesseMaxZ},
}};

struct ChampsSortie {
  LectureChamp signal, inverse;
};
constexpr std::array<ChampsSortie, 10> ChampsSorties{{{C::Sortie1, C::InverseSortie1},
                                                      {C::Sortie2, C::InverseSortie2},
                                                      {C::Sortie3, C::InverseSortie3},
                                                      {C::Sortie4, C::InverseSortie4},
                                                      {C::Sortie5, C::InverseSortie5},
                                                      {C::Sortie6, C::InverseSortie6},
                                                      {C::Sortie7, C::InverseSortie7},
                                                      {C::Sortie8, C::InverseSortie8},
                                                      {C::Sortie9, C::InverseSortie9},
                                                      {C::Sortie10, C::InverseSortie10}}};

constexpr int PenteMini = 1, PenteMaxi = 9;

// Fields as numbers in their ranges; keeps what had to be held.
class Lecteur {
 public:
  explicit Lecteur(const std::function<double(const LectureChamp&)>& lit) : lit_(lit) {}

  // To the nearest whole number within both ends.
  std::int32_t Entier(const LectureChamp& champ, std::int32_t mini, std::int32_t maxi) {
    const double lue = lit_(champ);
    const std::int32_t prise = std::clamp(Arrondi32(lue), mini, maxi);
    // A fraction is rounded without a word.
    if (std::fabs(lue - prise) > 0.5) Note(champ, lue, prise);
    return prise;
  }
  std::uint8_t Octet(const LectureChamp& champ) { return static_cast<std::uint8_t>(Entier(champ, 0, 255)); }
  double NonNul(const LectureChamp& champ, double mini, double maxi, double remplace) {
    const double lue = lit_(champ);
    const double prise = TenuHorsDeZero(lue, mini, maxi, remplace);
    if (lue != prise) Note(champ, lue, prise);
    return prise;
  }
  double Vitesse(const LectureChamp& champ) {
    const double lue = lit_(champ);
    const double prise = std::clamp(lue, VitesseMini, VitesseMaxi);
    if (lue != prise) Note(champ, lue, prise);
    return prise;
  }
  [[nodiscard]] double Brute(const LectureChamp& champ) const { return lit_(champ); }
  std::vector<ValeurTenue> Tenues() { return std::move(tenues_); }

 private:
  void Note(const LectureChamp& champ, double lue, double prise) {
    tenues_.push_back({champ.champ.Cle(), lue, prise});
  }

  const std::function<double(const LectureChamp&)>& lit_;
  std::vector<ValeurTenue> tenues_;
};

AxeZENIK LitAxe(Lecteur& lecteur, const ChampsAxe& champs) {
  AxeZENIK axe;
  axe.Transmission = lecteur.NonNul(champs.transmission, TransmissionMini, TransmissionMaxi, 1);
  // A motor has whole steps before they are divided.
  const double pas = std::nearbyint(lecteur.NonNul(champs.pas, 1, PasMoteurMaxi, 200));
  axe.PasParTour = Arrondi32(std::ldexp(pas, lecteur.Entier(champs.division, 0, DivisionMaxi)));
  return axe;
}

}  // namespace

std::array<double, 3> ParametresZENIK::MmParPas() const {
  std::array<double, 3> mm{};
  for (std::size_t i = 0; i < mm.size(); ++i) mm[i] = Axes[i].Transmission / Axes[i].PasParTour;
  return mm;
}

std::uint8_t OctetSortie(int signal, bool inverse) {
  const int bits = inverse ? 64 : 0;
  if (signal < 0 || signal > 5) return static_cast<std::uint8_t>(bits);
  return static_cast<std::uint8_t>(bits + (signal % 2 != 0 ? 128 : 0) + signal / 2 + 1);
}

LectureParametres LitParametres(const std::function<double(const LectureChamp&)>& lit) {
  Lecteur lecteur(lit);
  ParametresZENIK p;
  // The list of rates begins at 1.
  p.Multiplicateur = static_cast<std::int16_t>(lecteur.Entier(C::FrequenceMax, 0, MultiplicateurMaxi - 1) + 1);
  for (std::size_t i = 0; i < p.Axes.size(); ++i) p.Axes[i] = LitAxe(lecteur, ChampsAxes[i]);
  for (std::size_t i = 0; i < p.Axes.size(); ++i) {
    p.VitesseDepart[i] = lecteur.Vitesse(ChampsAxes[i].depart);
    p.VitesseRampe[i] = lecteur.Vitesse(ChampsAxes[i].rampe);
    p.PasParMm[i] = Arrondi32(p.Axes[i].PasParTour / p.Axes[i].Transmission);
    p.PasDepart[i] = Arrondi32(p.PasParMm[i] * p.VitesseDepart[i]);
    p.PasRampe[i] = Arrondi32(p.PasParMm[i] * p.VitesseRampe[i]);
  }
  for (std::size_t i = 0; i < p.Affectation.size(); ++i) {
    // An index that is none is no signal; nothing is held within anything.
    const int signal = Arrondi32(lecteur.Brute(ChampsSorties[i].signal));
    p.Affectation[i] = OctetSortie(signal, Arrondi32(lecteur.Brute(ChampsSorties[i].inverse)) != 0);
  }
  p.VitesseMaxPC = static_cast<std::uint8_t>(std::clamp(Arrondi32(lecteur.Brute(C::VitesseMaxPC)), 0, 100));
  p.TimeOutMoteur = lecteur.Octet(C::TimeOutMoteur);
  p.PenteAccel = static_cast<std::uint8_t>(lecteur.Entier(C::PenteAccel, PenteMini, PenteMaxi));
  p.TempsPalier = 1 << (p.PenteAccel + 9);
  p.TableFreq = CalculTableFreq(p.Multiplicateur, p.TempsPalier);
  p.OptFinCourse = lecteur.Octet(C::FinsDeCourse);
  p.OptOrientation = lecteur.Octet(C::Orientation);
  p.OptMoteur = lecteur.Octet(C::GestionMoteurs);
  p.OptSens = lecteur.Octet(C::OptionSens);
  return {p, lecteur.Tenues()};
}

}  // namespace ovelin
