#include "controller/OperateurCarte.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr double NombreMax = 1e9;

std::optional<double> Positif(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  return v && *v >= 0 && *v <= NombreMax ? v : std::nullopt;
}

}  // namespace

std::optional<VueCarte> RegardeCarte() {
  if (!LaCarte.virtuelle) return std::nullopt;
  zenikcom::CarteVirtuelle& carte = *LaCarte.virtuelle;
  const zenikcom::CompteursCarte c = carte.Compteurs();
  VueCarte vue;
  vue.compteurs = {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
  vue.lieu = carte.Lieu();
  vue.perdus = c.pasPerdus;
  vue.acceptes = c.acceptes;
  vue.commences = c.commences;
  vue.echanges = c.echanges;
  vue.sorties = carte.Sorties();
  vue.ecran = carte.Ecran();
  return vue;
}

ChampsModele TextesModele(const zenikcom::ModeleMachine& modele) {
  ChampsModele champs;
  for (std::size_t axe = 0; axe < modele.size(); ++axe) {
    champs[axe] = {TexteNombre(modele[axe].vitesseLibre), TexteNombre(modele[axe].rampe),
                   TexteNombre(static_cast<long>(modele[axe].jeu))};
  }
  return champs;
}

std::optional<zenikcom::ModeleMachine> LitModele(const ChampsModele& champs) {
  zenikcom::ModeleMachine modele;
  for (std::size_t axe = 0; axe < modele.size(); ++axe) {
    const auto libre = Positif(champs[axe][0]);
    const auto rampe = Positif(champs[axe][1]);
    const auto jeu = Positif(champs[axe][2]);
    if (!libre || !rampe || !jeu) return std::nullopt;
    modele[axe] = {*libre, *rampe, std::llround(*jeu)};
  }
  return modele;
}

std::optional<ModeleDAxe> LitModeleAxe(std::string_view texte) {
  constexpr std::string_view axes = "XYZ";
  if (texte.size() < 3 || texte[1] != ':') return std::nullopt;
  const std::size_t axe = axes.find(static_cast<char>(texte[0] & ~0x20));
  if (axe == std::string_view::npos) return std::nullopt;
  std::array<double, 3> nombres{};
  std::size_t rang = 0;
  for (texte.remove_prefix(2);; ++rang) {
    const std::size_t fin = texte.find(':');
    const auto v = Positif(std::string(texte.substr(0, fin)));
    if (rang == nombres.size() || !v) return std::nullopt;
    nombres[rang] = *v;
    if (fin == std::string_view::npos) break;
    texte.remove_prefix(fin + 1);
  }
  return ModeleDAxe{axe, {nombres[0], nombres[1], std::llround(nombres[2])}};
}

std::optional<GesteCarte> LitGeste(std::string_view texte) {
  const auto entier = [](std::string_view t, auto& v) {
    const auto [fin, erreur] = std::from_chars(t.data(), t.data() + t.size(), v);
    return erreur == std::errc{} && fin == t.data() + t.size();
  };
  GesteCarte geste;
  const std::size_t deux = texte.find(':');
  if (deux == std::string_view::npos || !entier(texte.substr(0, deux), geste.echange) || geste.echange < 1) {
    return std::nullopt;
  }
  texte.remove_prefix(deux + 1);
  const std::size_t egal = texte.find('=');
  const std::string_view nom = texte.substr(0, egal);
  const bool touches = nom == "keys";
  if (!touches && nom != "limit" && nom != "origin") return std::nullopt;
  geste.genre = touches ? GenreGeste::Touches : nom == "limit" ? GenreGeste::FinDeCourse : GenreGeste::Origine;
  geste.valeur = 1;
  if (egal == std::string_view::npos) return touches ? std::nullopt : std::optional(geste);
  if (!entier(texte.substr(egal + 1), geste.valeur) || (!touches && geste.valeur > 1)) return std::nullopt;
  return geste;
}

void FaitGeste(zenikcom::CarteVirtuelle& carte, const GesteCarte& geste) {
  switch (geste.genre) {
    case GenreGeste::FinDeCourse:
      return carte.FinDeCourse(geste.valeur != 0);
    case GenreGeste::Origine:
      return carte.Origine(geste.valeur != 0);
    case GenreGeste::Touches:
      return carte.Appuie(geste.valeur);
  }
}

std::optional<zenikcom::Faute> LitFautePrevue(int genre, const std::string& apres, const std::string& duree,
                                              std::int64_t echanges) {
  const auto combien = Positif(apres);
  const auto secondes = Positif(duree);
  const bool connu = genre >= 0 && genre < static_cast<int>(zenikcom::NomsFautes.size());
  if (!connu || !combien || *combien < 1 || !secondes) return std::nullopt;
  return zenikcom::Faute{echanges + std::llround(*combien),
                         zenikcom::NomsFautes[static_cast<std::size_t>(genre)].genre, *secondes};
}

std::vector<zenikcom::Faute> FautesAVenir(std::vector<zenikcom::Faute> fautes, std::int64_t echanges) {
  std::erase_if(fautes, [echanges](const zenikcom::Faute& f) { return f.echange <= echanges; });
  std::sort(fautes.begin(), fautes.end(), [](const auto& a, const auto& b) { return a.echange < b.echange; });
  return fautes;
}

}  // namespace ovelin
