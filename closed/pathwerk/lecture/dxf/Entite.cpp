#include "closed/pathwerk/lecture/dxf/Entite.h"

#include <algorithm>

#include "base/Indices.h"

namespace pathwerk::lecture::dxf {

namespace {

struct NomGenre {
  std::string_view nom;
  Genre genre;
};

constexpr NomGenre Genres[] = {{"LINE", Genre::Ligne},    {"LWPOLYLINE", Genre::PolyligneLegere},
                               {"VERTEX", Genre::Autre},  {"ARC", Genre::Arc},
                               {"CIRCLE", Genre::Cercle}, {"POLYLINE", Genre::Polyligne},
                               {"SPLINE", Genre::Spline}, {"ELLIPSE", Genre::Ellipse},
                               {"POINT", Genre::Point},   {"INSERT", Genre::Insertion},
                               {"HATCH", Genre::Hachure}, {"SOLID", Genre::Solide},
                               {"TRACE", Genre::Solide},  {"3DFACE", Genre::Face3D},
                               {"SEQEND", Genre::Rien},   {"VIEWPORT", Genre::Rien}};

constexpr std::size_t OctetsSommet = 12;  // "10", "0", "20", "0" and their line ends

constexpr unsigned CodesX = 1;
constexpr unsigned CodesY = 1U << 4;

// The data end, or can't be read on.
FinEntite Fin(Etat etat, Groupe& g) {
  if (etat == Etat::Fin) return FinEntite::Donnees;
  if (etat == Etat::Faux) return FinEntite::Faux;
  if (g.code != 0) return FinEntite::Coupe;
  // A group 0 that has only begun would be the next entity: this one is whole, and the last.
  g.texte = "EOF";
  return FinEntite::Suite;
}

// Groups that lists are made of; true when the group was one.
bool PrendListe(const Groupe& g, double v, Entite& e) {
  if (e.genre == Genre::PolyligneLegere) {
    switch (g.code) {
      case 10:
        e.sommets.push_back({{v, 0, 0}, 0});
        e.dernierBulge = false;
        e.donnes &= ~CodesY;
        return true;
      case 20:
        if (!e.sommets.empty()) e.sommets.back().p.y = v;
        e.donnes |= CodesY;
        return true;
      case 42:
        if (!e.sommets.empty()) e.sommets.back().bulge = v;
        e.dernierBulge = e.bulges = true;
        return true;
      default:
        return false;
    }
  }
  if (e.genre != Genre::Spline) return false;
  std::vector<Vec3>* const liste = g.code % 10 == 0 ? &e.controle : &e.lissage;
  switch (g.code) {
    case 10:
    case 11:
      liste->push_back({v, 0, 0});
      e.donnes &= ~CodesY;
      return true;
    case 20:
    case 21:
      e.donnes |= CodesY;
      if (!liste->empty()) liste->back().y = v;
      return true;
    case 30:
    case 31:
      if (!liste->empty()) liste->back().z = v;
      return true;
    case 40:
      e.noeuds.push_back(v);
      return true;
    case 41:
      e.poids.push_back(v);
      return true;
    default:
      return false;
  }
}

void PrendReel(const Groupe& g, double v, Entite& e) {
  if (PrendListe(g, v, e)) return;
  const int dizaine = g.code / 10;
  const auto unite = base::Indice(g.code % 10);
  if (dizaine <= 3) {
    if (g.code == 38) e.p[0].z = v;  // elevation of a light polyline
    if (unite > 3) return;
    if (dizaine == 1) e.p[unite].x = v;
    if (dizaine == 2) e.p[unite].y = v;
    if (dizaine == 3) e.p[unite].z = v;
    if (dizaine == 1) e.donnes |= CodesX << unite;
    if (dizaine == 2) e.donnes |= CodesY << unite;
  } else if (g.code <= 51) {
    const auto i = base::Indice(g.code - 40);
    e.reels[i] = v;
    e.reelsDonnes |= 1U << i;
  } else if (g.code == 210) {
    e.extrusion.x = v;
  } else if (g.code == 220) {
    e.extrusion.y = v;
  } else if (g.code == 230) {
    e.extrusion.z = v;
  }
}

// A colour that can't be read is no reason to refuse a drawing.
void PrendCouleur(const Groupe& g, Entite& e) {
  int n = 0;
  if (!LitEntier(g, n)) return;
  if (g.code == 420) {
    e.couleur.vraie = n;
  } else {
    e.couleur.numero = n;
  }
}

// `reste`: bytes of the file behind the group. False for a number that isn't one. What isn't drawn may hold
// anything.
bool Prend(const Groupe& g, Entite& e, std::size_t reste) {
  int n = 0;
  if (g.code == 8) {
    e.calque = g.texte.substr(0, NomCalqueMax);
    return true;
  }
  if (g.code == 2) {
    e.bloc = g.texte;
    return true;
  }
  if (g.code == 62 || g.code == 420) {
    PrendCouleur(g, e);
    return true;
  }
  if (g.code == 67 || g.code == 60) {
    if (!LitEntier(g, n)) return false;
    (g.code == 67 ? e.papier : e.invisible) = n != 0;
    return true;
  }
  // The fields of a hatch are lists within lists, read on their own.
  if (e.genre >= Genre::Rien || e.genre == Genre::Hachure) {
    if (e.genre != Genre::Hachure || g.code < 210) return true;
  }
  if ((g.code >= 10 && g.code <= 51) || (g.code >= 210 && g.code <= 230)) {
    double v = 0;
    if (!LitReel(g, v)) return false;
    PrendReel(g, v, e);
  } else if ((g.code >= 70 && g.code <= 79) || g.code == 90) {
    if (!LitEntier(g, n)) return false;
    (g.code == 90 ? e.nombreSommets : e.entiers[base::Indice(g.code - 70)]) = n;
    if (g.code == 90 && e.genre == Genre::PolyligneLegere && n > 0) {
      // The announced number spares regrowing, as far as the rest of the file can hold it.
      e.sommets.reserve(std::min(base::Indice(n), reste / OctetsSommet));
    }
  }
  return true;
}

}  // namespace

Genre GenreDe(std::string_view nom) {
  for (const NomGenre& g : Genres) {
    if (g.nom == nom) return g.genre;
  }
  return Genre::Autre;
}

void Entite::Vide() {
  sommets.clear();
  controle.clear();
  lissage.clear();
  noeuds.clear();
  poids.clear();
  calque = "0";
  couleur = {};
  bloc = {};
  papier = invisible = dernierBulge = bulges = false;
  extrusion = {0, 0, 1};
  p = {};
  donnes = reelsDonnes = 0;
  reels = {};
  entiers = {};
  nombreSommets = -1;
}

FinEntite LitEntite(LecteurGroupes& lecteur, Groupe& g, Entite& e) {
  e.Vide();
  e.nom = g.texte;
  e.genre = GenreDe(g.texte);
  e.ligne = g.ligne;
  e.debut = lecteur.Ici();
  for (;;) {
    const Etat etat = lecteur.Suivant(g);
    if (etat != Etat::Groupe) return Fin(etat, g);
    if (g.code == 0) return FinEntite::Suite;
    if (!Prend(g, e, lecteur.Taille() - lecteur.Ici().position)) return FinEntite::Nombre;
  }
}

FinEntite LitSommets(LecteurGroupes& lecteur, Groupe& g, Entite& e) {
  constexpr int CodesCadre = 16;
  while (g.texte == "VERTEX") {
    Sommet s;
    int drapeaux = 0;
    for (;;) {
      const Etat etat = lecteur.Suivant(g);
      if (etat == Etat::Faux) return FinEntite::Faux;
      if (etat != Etat::Groupe) return FinEntite::Coupe;  // the polyline lacks its end
      if (g.code == 0) break;
      bool bon = true;
      switch (g.code) {
        case 10:
          bon = LitReel(g, s.p.x);
          break;
        case 20:
          bon = LitReel(g, s.p.y);
          break;
        case 30:
          bon = LitReel(g, s.p.z);
          break;
        case 42:
          bon = LitReel(g, s.bulge);
          break;
        case 70:
          bon = LitEntier(g, drapeaux);
          break;
        default:
          break;
      }
      if (!bon) return FinEntite::Nombre;
    }
    if ((drapeaux & CodesCadre) != 0) {
      e.controle.push_back(s.p);
    } else {
      e.sommets.push_back(s);
    }
  }
  if (g.texte != "SEQEND") return FinEntite::Suite;
  for (;;) {
    const Etat etat = lecteur.Suivant(g);
    if (etat != Etat::Groupe) {
      g.code = 0;  // whatever is missing, the polyline is whole
      return Fin(etat, g);
    }
    if (g.code == 0) return FinEntite::Suite;
  }
}

bool Complete(const Entite& e) {
  constexpr unsigned CodesRayon = 1;          // 40
  constexpr unsigned CodesAngles = 3U << 10;  // 50, 51
  switch (e.genre) {
    case Genre::Ligne:
    case Genre::Ellipse:
      return e.Points(2);
    case Genre::Point:
    case Genre::Insertion:
      return e.Points(1);
    case Genre::Cercle:
      return e.Points(1) && (e.reelsDonnes & CodesRayon) != 0;
    case Genre::Arc:
      return e.Points(1) && (e.reelsDonnes & CodesRayon) != 0 && (e.reelsDonnes & CodesAngles) == CodesAngles;
    case Genre::Solide:
    case Genre::Face3D:
      return e.Points(3);
    default:
      return true;
  }
}

bool CompleteALaFin(const Entite& e) {
  const auto nombre = [&e](int code) { return base::Indice(e.Entier(code)); };
  constexpr unsigned CodesEllipse = 7;  // 40 to 42
  switch (e.genre) {
    // What can still follow changes the whole: scales, turn, rows; boundaries.
    case Genre::Insertion:
    case Genre::Hachure:
      return false;
    case Genre::PolyligneLegere:
      return e.nombreSommets >= 0 && e.sommets.size() == base::Indice(e.nombreSommets) &&
             (e.donnes & CodesY) != 0 && e.dernierBulge == e.bulges;
    case Genre::Solide:
    case Genre::Face3D:
      return e.Points(4);
    case Genre::Ellipse:
      return e.Points(2) && (e.reelsDonnes & CodesEllipse) == CodesEllipse;
    case Genre::Spline:
      return (e.donnes & CodesY) != 0 && e.noeuds.size() == nombre(72) && e.controle.size() == nombre(73) &&
             e.lissage.size() == nombre(74) && (e.poids.empty() || e.poids.size() == e.controle.size());
    default:
      return Complete(e);
  }
}

}  // namespace pathwerk::lecture::dxf
