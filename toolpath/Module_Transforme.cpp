#include "toolpath/Module_Transforme.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/Indices.h"
#include "core/ChampsMachine.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"

namespace ovelin {

namespace {

constexpr double MargeCoin = 5;  // mm, from the machine's origin to a drawing that has been opened

struct Lieu {
  double x = 0;
  double y = 0;
};

bool Acceptable(const Lieu& l) { return std::abs(l.x) <= CoordonneeMax && std::abs(l.y) <= CoordonneeMax; }

bool RefuseCoordonnee() {
  Message(Textes::CoordonneeHorsLimites, Icone::Critique);
  return false;
}

// Runs of the selected records: the first of each code, as the table holds them.
std::vector<std::pair<std::size_t, std::size_t>> EtenduesSelection() {
  const IndexCodes index = IndexDocument();
  std::vector<std::pair<std::size_t, std::size_t>> bornes;
  for (const Code2 code : CodesSelectionnes()) {
    const auto premier = index.PremierPoint(code);
    if (premier) bornes.emplace_back(*premier, EtendueDepuis(TraceInitial, *premier).Fin());
  }
  return bornes;
}

// Every point of the ranges to its image, or none at all when one would leave the plane of the drawing.
template <class Image>
bool Transforme(const std::vector<std::pair<std::size_t, std::size_t>>& bornes, const Image& image) {
  for (const auto& [debut, fin] : bornes) {
    for (std::size_t i = debut; i < fin; ++i) {
      if (!Acceptable(image(TraceInitial[i]))) return RefuseCoordonnee();
    }
  }
  for (const auto& [debut, fin] : bornes) {
    for (std::size_t i = debut; i < fin; ++i) {
      const Lieu l = image(TraceInitial[i]);
      TraceInitial[i].X = static_cast<float>(l.x);
      TraceInitial[i].Y = static_cast<float>(l.y);
    }
  }
  return true;
}

template <class Image>
bool TransformeTout(const Image& image) {
  return Transforme({{0, TraceInitial.size()}}, image);
}

// First and last point of the path around a point.
std::pair<std::size_t, std::size_t> EtendueDuPoint(std::size_t index) {
  std::size_t debut = index;
  std::size_t fin = index;
  while (debut > 0 && TraceInitial[debut - 1].Seq == TraceInitial[index].Seq) --debut;
  while (fin + 1 < TraceInitial.size() && TraceInitial[fin + 1].Seq == TraceInitial[index].Seq) ++fin;
  return {debut, fin};
}

void Termine() {
  EncombrementGeneral();
  Modifie = Vrai;
  Svc.Rafraichit();
}

// Behind the traces of a change. False: it was taken back.
bool Acheve(IssuePasse issue) {
  if (issue == IssuePasse::EnVigueur) Termine();
  return PasseTraces::Faite(issue);
}

bool PeutDeplacer(double dx, double dy) {
  for (const auto& [debut, fin] : EtenduesSelection()) {
    for (std::size_t i = debut; i < fin; ++i) {
      if (!Acceptable({TraceInitial[i].X + dx, TraceInitial[i].Y + dy})) return false;
    }
  }
  return true;
}

// The sizes of the dimension fields are rounded to hundredths of a millimetre; limits are held against what they
// show.
double TailleAffichee(float debut, float fin) { return std::nearbyint(Ecart(debut, fin) * 100) / 100; }

bool RefuseDimension(CleTexte texte) {
  Message(texte, Icone::Critique);
  return false;
}

float LimiteCourse(const LectureChamp& course) {
  return EnFloat(LireNombreSection(SectionTable(TableDefaut), course.champ.Cle(), course.Nombre()));
}

bool TournePoints(double angle, const PointTrace& centre) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return Transforme(EtenduesSelection(), [&](const PointTrace& p) {
    const double dx = Ecart(centre.X, p.X);
    const double dy = Ecart(centre.Y, p.Y);
    return Lieu{centre.X + dx * c - dy * s, centre.Y + dx * s + dy * c};
  });
}

}  // namespace

bool TourneSelection(double angle, const PointTrace& centre) {
  const bool faite = TournePoints(angle, centre);
  if (faite) RefaitDecalages(CodesSelectionnes());
  return faite;
}

bool TourneSelectionEtTraces(double angle, const PointTrace& centre) {
  PasseTraces passe;
  return TournePoints(angle, centre) && Acheve(passe.Suit(CodesSelectionnes()));
}

bool EchelleSelection(float facteurX, float facteurY) {
  const PointTrace centre = CentreSelection();
  return Transforme(EtenduesSelection(), [&](const PointTrace& p) {
    return Lieu{Ecart(centre.X, p.X) * facteurX + centre.X, Ecart(centre.Y, p.Y) * facteurY + centre.Y};
  });
}

bool MiroirSelection(AxeMiroir axe) {
  const PointTrace centre = CentreSelection();
  const auto bornes = EtenduesSelection();
  const bool faite = Transforme(bornes, [&](const PointTrace& p) {
    return axe == AxeMiroir::X ? Lieu{2.0 * centre.X - p.X, p.Y} : Lieu{p.X, 2.0 * centre.Y - p.Y};
  });
  if (!faite) return false;
  // The other sense of travel, so that the tool stays on the same side of the material.
  for (const auto& [debut, fin] : bornes) InverseEtendue(debut);
  return true;
}

bool MiroirSelectionEtTraces(AxeMiroir axe) {
  PasseTraces passe;
  if (!MiroirSelection(axe)) return false;
  Statut(Textes::CalculTrajetOutil);
  return Acheve(passe.Suit(CodesSelectionnes()));
}

// The plain refresh comes behind a change that somebody else has made, so there is nothing here to take back.
bool Deplacement_Selection(Direction direction, float distance) {
  if (direction == Direction::Aucune) {
    RefaitDecalages(CodesSelectionnes());
    Termine();
    return true;
  }
  const double dx = direction == Direction::X ? distance : 0.0;
  const double dy = direction == Direction::Y ? distance : 0.0;
  if (!PeutDeplacer(dx, dy)) return RefuseCoordonnee();
  PasseTraces passe;
  DeplaceSelection(direction, distance);
  return Acheve(passe.Suit(CodesSelectionnes()));
}

bool Deplacement_Libre(float dx, float dy) {
  if (!PeutDeplacer(dx, dy)) return RefuseCoordonnee();
  PasseTraces passe;
  DeplaceSelection(Direction::X, dx);
  DeplaceSelection(Direction::Y, dy);
  return Acheve(passe.Suit(CodesSelectionnes()));
}

bool Dimensionne_Selection(double rapportX, double rapportY, bool proportions) {
  const float limiteX = LimiteCourseX();
  const float limiteY = LimiteCourseY();
  const auto fx = static_cast<float>(rapportX);
  const auto fy = proportions ? fx : static_cast<float>(rapportY);
  const auto nul = [](float r) { return r == 0 || !std::isfinite(r); };
  if (nul(fx) || nul(fy) || nul(static_cast<float>(rapportY))) return RefuseDimension(Textes::RapportNul);
  if (proportions) rapportY = rapportX;
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  EncombrementSelection(x0, x1, y0, y1, 0);
  // In 32 bits, so that a result that is the limit on the screen is the limit here. A negative ratio mirrors; its
  // result is as wide.
  const auto resultatX = static_cast<float>(std::abs(TailleAffichee(x0, x1) * rapportX));
  const auto resultatY = static_cast<float>(std::abs(TailleAffichee(y0, y1) * rapportY));
  if (resultatX > limiteX || resultatY > limiteY) return RefuseDimension(Textes::DimensionHorsCourse);
  Statut(Textes::CalculTrajetOutil);
  PasseTraces passe;
  const bool faite = EchelleSelection(fx, fy) && Acheve(passe.SuitTout());
  EffaceStatut();
  return faite;
}

bool Recale(double x, double y) {
  PasseTraces passe;
  EncombrementGeneral();
  EncombrementSelection(Xmin, Xmax, Ymin, Ymax, 0);
  const Lieu coin{Xmin, Ymin};
  const bool faite = TransformeTout([&](const PointTrace& p) { return Lieu{p.X - coin.x + x, p.Y - coin.y + y}; });
  if (faite) return Acheve(passe.SuitTout());
  EncombrementGeneral();
  return false;
}

// The corner of the selection's box is what is placed, so it goes as far beyond the margin as it lies from the
// drawing's.
bool PlaceAuCoin() {
  EncombrementGeneral();
  double gauche = Xmin;
  double bas = Ymin;
  for (const SequenceDecalee& trace : TraceDecale) {
    for (const PointTrace& p : trace.Points) {
      gauche = std::min(gauche, double{p.X});
      bas = std::min(bas, double{p.Y});
    }
  }
  float xmin = Xmin, xmax = Xmax, ymin = Ymin, ymax = Ymax;
  EncombrementSelection(xmin, xmax, ymin, ymax, 0);
  return Recale(std::max(MargeCoin, Xmin - gauche) + Ecart(Xmin, xmin),
                std::max(MargeCoin, Ymin - bas) + Ecart(Ymin, ymin));
}

float LimiteCourseX() { return LimiteCourse(ChampsMachine::LimiteX); }
float LimiteCourseY() { return LimiteCourse(ChampsMachine::LimiteY); }

bool PlaceOrigine() {
  const Lieu origine{OrigineX, OrigineY};
  PasseTraces passe;
  if (!TransformeTout([&](const PointTrace& p) { return Lieu{p.X - origine.x, p.Y - origine.y}; })) return false;
  // The marked place is (0, 0) now: a second press moves nothing.
  OrigineX = 0;
  OrigineY = 0;
  return Acheve(passe.SuitTout());
}

bool ChangePosition(std::int32_t index, float x, float y) {
  if (index < 0 || base::Indice(index) >= TraceInitial.size()) return false;
  if (!Acceptable({x, y})) return RefuseCoordonnee();
  PasseTraces passe;
  const auto [debut, fin] = EtendueDuPoint(base::Indice(index));
  PointTrace& premier = TraceInitial[debut];
  PointTrace& dernier = TraceInitial[fin];
  PointTrace& p = TraceInitial[base::Indice(index)];
  const bool ferme = premier.X == dernier.X && premier.Y == dernier.Y;
  if (ferme && (&p == &premier || &p == &dernier)) {
    premier.X = dernier.X = x;
    premier.Y = dernier.Y = y;
  }
  p.X = x;
  p.Y = y;
  return Acheve(passe.SuitUn(p.Seq));
}

bool SupprimePoints(const std::vector<std::int32_t>& index) {
  std::vector<bool> retire(TraceInitial.size(), false);
  std::vector<Code2> codes;
  for (const std::int32_t i : index) {
    if (i < 0 || base::Indice(i) >= TraceInitial.size()) continue;
    retire[base::Indice(i)] = true;
    codes.push_back(TraceInitial[base::Indice(i)].Seq);
  }
  if (codes.empty()) return false;
  if (Regl.ConfirmSuppr && Message(Textes::SupprimePoints, Icone::Question, Boutons::OuiNon) != Reponse::Oui) {
    return false;
  }
  Statut(Textes::SupprimePoints);
  PasseTraces passe;
  std::size_t garde = 0;
  for (std::size_t i = 0; i < TraceInitial.size(); ++i) {
    if (!retire[i]) TraceInitial[garde++] = TraceInitial[i];
  }
  TraceInitial.resize(garde);
  NbPoints = base::Compte(garde);
  const bool un = std::all_of(codes.begin(), codes.end(), [&](Code2 c) { return c == codes.front(); });
  const IssuePasse issue = un ? passe.SuitUn(codes.front()) : passe.SuitTout();
  if (issue == IssuePasse::Abandonnee) EffaceStatut();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  Statut(Textes::EnregistreModifie);
  Termine();
  Statut(Textes::Termine);
  return true;
}

}  // namespace ovelin
