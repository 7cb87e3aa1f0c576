#include "controller/BlocsTable.h"

#include <algorithm>
#include <cmath>

#include "core/Nombres.h"

namespace ovelin {

namespace {

// Places in the exchange.
constexpr std::size_t Constantes = 12, Sorties = 17, Multiplicateur = 27, Pente = 28, Vitesse = 29, TimeOut = 30,
                      Options = 31, Sens = 32, Langue = 33;
constexpr std::size_t PasParMm = 4, PasDepart = 14, PasRampe = 24;
constexpr std::array<std::uint8_t, 3> ValeursConstantes{4, 8, 12};
constexpr std::uint8_t SensAutre = 4, SensNormal = 1;

std::uint8_t Bas(std::int32_t v) { return static_cast<std::uint8_t>(static_cast<std::uint32_t>(v) & 0xFFU); }
std::uint8_t Haut(std::int32_t v) { return static_cast<std::uint8_t>(static_cast<std::uint32_t>(v) >> 8U & 0xFFU); }

std::uint8_t& Octet(BlocTable& bloc, std::size_t place) { return bloc[place - DebutBloc]; }

void Compare(std::vector<EcartTable>& ecarts, std::span<const std::uint8_t, 33> carte, const BlocTable& programme,
             std::size_t premier, std::size_t dernier) {
  for (std::size_t i = premier; i <= dernier; ++i) {
    const std::uint8_t la = carte[i - DebutBloc];
    const std::uint8_t ici = programme[i - DebutBloc];
    if (la != ici) ecarts.push_back({i, la, ici});
  }
}

// Each of the three groups of the second block, with its place and unit.
struct Groupe {
  const std::array<std::int32_t, 3>& valeurs;
  std::size_t place;
  const char* unite;
};
std::array<Groupe, 3> Groupes(const ParametresZENIK& p) {
  return {{{p.PasParMm, PasParMm, "/mm"}, {p.PasDepart, PasDepart, "/s"}, {p.PasRampe, PasRampe, "/s"}}};
}

}  // namespace

BlocTable PremierBloc(const ParametresZENIK& p, std::string_view nom, std::string_view langue) {
  BlocTable bloc{};
  std::fill_n(bloc.begin(), LongueurNomCarte, std::uint8_t{' '});
  std::copy_n(nom.begin(), std::min(nom.size(), LongueurNomCarte), bloc.begin());
  std::copy(ValeursConstantes.begin(), ValeursConstantes.end(), &Octet(bloc, Constantes));
  std::copy(p.Affectation.begin(), p.Affectation.end(), &Octet(bloc, Sorties));
  Octet(bloc, Multiplicateur) = Bas(p.Multiplicateur);
  Octet(bloc, Pente) = p.PenteAccel;
  Octet(bloc, Vitesse) = Bas(Arrondi32(p.VitesseMaxPC * 255 / 100.0));
  Octet(bloc, TimeOut) = p.TimeOutMoteur;
  Octet(bloc, Options) = Bas(p.OptFinCourse + 2 * p.OptOrientation + 4 * p.OptMoteur);
  Octet(bloc, Sens) = p.OptSens != 0 ? SensAutre : SensNormal;
  Octet(bloc, Langue) = langue == "en" ? 1 : 0;
  return bloc;
}

BlocTable DeuxiemeBloc(const ParametresZENIK& p) {
  BlocTable bloc{};
  for (const Groupe& g : Groupes(p)) {
    for (std::size_t axe = 0; axe < g.valeurs.size(); ++axe) {
      Octet(bloc, g.place + 2 * axe) = Bas(g.valeurs[axe]);
      Octet(bloc, g.place + 2 * axe + 1) = Haut(g.valeurs[axe]);
    }
  }
  return bloc;
}

std::vector<EcartTable> EcartsPremierBloc(std::span<const std::uint8_t, 33> carte, const ParametresZENIK& p,
                                          std::string_view langue) {
  const BlocTable programme = PremierBloc(p, "", langue);
  std::vector<EcartTable> ecarts;
  Compare(ecarts, carte, programme, Sorties, Options);
  if (p.OptSens <= 1) Compare(ecarts, carte, programme, Sens, Sens);
  if (langue == "fr" || langue == "en") Compare(ecarts, carte, programme, Langue, Langue);
  return ecarts;
}

std::vector<EcartTable> EcartsDeuxiemeBloc(std::span<const std::uint8_t, 33> carte, const ParametresZENIK& p) {
  const BlocTable programme = DeuxiemeBloc(p);
  std::vector<EcartTable> ecarts;
  for (const Groupe& g : Groupes(p)) Compare(ecarts, carte, programme, g.place, g.place + 2 * g.valeurs.size() - 1);
  return ecarts;
}

std::vector<std::string> Debords(const ParametresZENIK& p) {
  constexpr std::int32_t maxi16 = 65'535;
  constexpr const char* axes = "XYZ";
  std::vector<std::string> debords;
  for (const Groupe& g : Groupes(p)) {
    for (std::size_t axe = 0; axe < g.valeurs.size(); ++axe) {
      const std::int32_t valeur = g.valeurs[axe];
      if (valeur >= 0 && valeur <= maxi16) continue;
      debords.push_back(std::string(1, axes[axe]) + ": " + std::to_string(valeur) + " " + g.unite);
    }
  }
  return debords;
}

ParametresZENIK AvecAxes(ParametresZENIK ecrits, const ParametresZENIK& enVigueur) {
  ecrits.Axes = enVigueur.Axes;
  ecrits.PenteAccel = enVigueur.PenteAccel;
  for (std::size_t i = 0; i < ecrits.Axes.size(); ++i) {
    ecrits.PasParMm[i] = Arrondi32(ecrits.Axes[i].PasParTour / ecrits.Axes[i].Transmission);
    ecrits.PasDepart[i] = Arrondi32(ecrits.PasParMm[i] * ecrits.VitesseDepart[i]);
    ecrits.PasRampe[i] = Arrondi32(ecrits.PasParMm[i] * ecrits.VitesseRampe[i]);
  }
  return ecrits;
}

}  // namespace ovelin
