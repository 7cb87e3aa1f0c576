#include "run/NoyauPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

#include "base/Indices.h"
#include "core/Cadence.h"
#include "core/Nombres.h"
#include "run/RampeEntree.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

std::int32_t SommeBornee(std::int32_t a, std::int32_t b) {
  const std::int64_t somme = std::int64_t{a} + b;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(somme, std::numeric_limits<std::int32_t>::min(),
                                                            std::numeric_limits<std::int32_t>::max()));
}

// Adds a move to the sum of an axis, all in mm. `exact` is the move before its rounding to 32 bits.
//
// A job of a million short rows far from its start loses a tenth of a millimetre in a plain 32-bit sum, rounding by
// rounding. What is lost is kept in `reste` and put back when it is worth an eighth of a step, so that the total
// never strays from the path by more and the sum of a short job is the plain one.
void Cumule(float& cumul, double& reste, float ecart, double exact, double mmParPas) {
  const float somme = cumul + ecart;
  reste += cumul + exact - somme;
  cumul = somme;
  if (std::abs(reste) <= std::abs(mmParPas) / 8) return;
  const auto corrigee = static_cast<float>(cumul + reste);
  reste -= Ecart(cumul, corrigee);
  cumul = corrigee;
}

// Steps of a row from the running total, so that the error stays below half a step however many rows there are.
//
//   asked, in steps   0.4   0.8   1.2   1.6   2.0
//   total, rounded     0     1     1     2     2
//   steps of the row   0     1     0     1     0
//
// An axis without a resolution makes no steps.
std::int32_t PasLigne(float cumul, double mmParPas, std::int32_t& pasCumul) {
  if (mmParPas == 0) return 0;
  const std::int32_t pas = Arrondi32(cumul / mmParPas - pasCumul);
  pasCumul = SommeBornee(pasCumul, pas);
  return pas;
}

// A new last row behind `plan.NbDeplacements`, whatever stood there before.
Deplacement& NouvelleLigne(EtatPlan& plan) {
  ++plan.NbDeplacements;
  const auto index = base::Indice(plan.NbDeplacements);
  if (plan.TableDecoupe.size() != index) plan.TableDecoupe.resize(index);
  plan.TableDecoupe.emplace_back();
  Deplacement& ligne = plan.TableDecoupe[index];
  const Deplacement& avant = plan.TableDecoupe[index - 1];
  ligne.X = avant.X;
  ligne.Y = avant.Y;
  ligne.Z = avant.Z;
  return ligne;
}

// A row in the plane that has no speed yet, or nothing for a move of no length. The sums in mm grow either way, so
// no fraction is lost.
Deplacement* LignePlane(EtatPlan& plan, const ParametresPlan& p, const PointTrace& depart,
                        const PointTrace& arrivee) {
  const float ecartX = arrivee.X - depart.X;
  const float ecartY = arrivee.Y - depart.Y;
  const double exactX = Ecart(depart.X, arrivee.X);
  const double exactY = Ecart(depart.Y, arrivee.Y);
  Cumule(plan.CumulX, plan.ResteX, ecartX, exactX, p.MmParPasX);
  Cumule(plan.CumulY, plan.ResteY, ecartY, exactY, p.MmParPasY);
  if (ecartX == 0 && ecartY == 0) return nullptr;

  Deplacement& ligne = NouvelleLigne(plan);
  ligne.X = arrivee.X;
  ligne.Y = arrivee.Y;
  ligne.dX = PasLigne(plan.CumulX, p.MmParPasX, plan.PasCumulX);
  ligne.dY = PasLigne(plan.CumulY, p.MmParPasY, plan.PasCumulY);
  return &ligne;
}

// How many times too fast an axis would run. An axis that doesn't move never limits; one that may not move does so
// without end, which leaves the row a speed of 0.
double Exces(double vitesseAxe, float vitesseMax) {
  if (vitesseAxe == 0) return 0;
  if (!(vitesseMax > 0)) return std::numeric_limits<double>::infinity();
  return vitesseAxe / vitesseMax;
}

// `v` along a move of (ecartX, ecartY), so that neither axis runs faster than it can.
double LimiteAxes(double v, double ecartX, double ecartY, double longueur, const ParametresPlan& p) {
  const double r = std::max(Exces(v * std::abs(ecartY) / longueur, p.VitesseMaxY),
                            Exces(v * std::abs(ecartX) / longueur, p.VitesseMaxX));
  return r > 1 ? v / r : v;
}

constexpr double VitesseRapide = 1000.0;  // mm/s, before the limit of the axes

// The pass below `passe`: a 32-bit float, never below the depth, so that the last one stops exactly there.
float Plonge(float passe, double profPasse, double profondeur) {
  return static_cast<float>(std::max(passe + profPasse, profondeur));
}

bool EstOuvert(std::span<const PointTrace> points) { return !MemePlace(points.front(), points.back()); }

// The tool over one path: where it is, and how high a notch holds it.
class Fraisage {
 public:
  Fraisage(EtatPlan& plan, const ParametresPlan& p) : plan_(plan), p_(p) {
    pos_.X = static_cast<float>(p.PosX);
    pos_.Y = static_cast<float>(p.PosY);
  }

  void Usine(const std::vector<PointTrace>& points, double profondeur);
  void Termine();

 private:
  void UsineRampe(std::span<const PointTrace> points, const BoucleEntree& boucle, double profondeur);
  void Suit(std::span<const PointTrace> points, float passe, float niveauEncoche);
  void Survole(const PointTrace& point, float passe);
  void Z(float delta, Drapeau matiere) { PlanAjouteZ(plan_, p_, delta, matiere, 0); }

  EtatPlan& plan_;
  const ParametresPlan& p_;
  Cadence cadence_;
  PointTrace pos_;
  // Height above the pass at which a notch holds the tool; 32 bits as the pass itself, so that a bridge level that
  // equals a pass in decimals isn't lifted for by the digits that only 64 bits have. Lives from path to path.
  float leve_ = 0;
};

// To a point with the tool up, and down again: the blade that has turned in the margin must not cut its way to the
// contour.
void Fraisage::Survole(const PointTrace& point, float passe) {
  Z(-passe - leve_, Vrai);
  leve_ = 0;
  Z(p_.HautDeg, Faux);
  PlanAjoute(plan_, p_, pos_, point, Faux, 0);
  Z(-p_.HautDeg, Faux);
  Z(passe, Vrai);
}

// The points behind the first, cutting; up at the entry of a notch, down at its exit.
//
//   pass      ___________          ________
//                        |________|            <- bridge level, Leve above the pass
//                       "PE"     "PD"
void Fraisage::Suit(std::span<const PointTrace> points, float passe, float niveauEncoche) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    const PointTrace& point = points[i];
    if (i > 1 && points[i - 1].Cde == CodePU) {
      Survole(point, passe);
    } else {
      PlanAjoute(plan_, p_, pos_, point, Vrai, 0);
    }
    if (leve_ == 0 && point.Cde == CodePE && niveauEncoche > passe) {
      leve_ = niveauEncoche - passe;
      Z(leve_, Vrai);
    }
    if (leve_ != 0 && point.Cde == CodePD) {
      Z(-leve_, Vrai);
      leve_ = 0;
    }
    pos_ = point;
    cadence_.Bat();
  }
}

// One path with all its passes. Passes are 32-bit floats and so is the depth that ends them: with 64 bits a depth
// of -0.1 would be compared with the -0.100000001 that the rows hold, and the passes would never end.
void Fraisage::Usine(const std::vector<PointTrace>& points, double profondeur) {
  if (const auto boucle = BoucleDeRampe(p_, points, profondeur); boucle && leve_ == 0) {
    return UsineRampe(points, *boucle, profondeur);
  }
  const bool ouvert = EstOuvert(points);
  const auto fond = static_cast<float>(profondeur);
  const auto niveauEncoche = static_cast<float>(p_.MiniEncoche + profondeur);
  plan_.PassePremiere = 1;
  float precedente = 0;
  float passe = Plonge(0, p_.ProfPasse, profondeur);
  do {
    PlanAjoute(plan_, p_, pos_, points.front(), Faux, 0);
    pos_ = points.front();
    if (plan_.PassePremiere == 1 || ouvert) {
      Z(-p_.HautDeg, Faux);
      precedente = 0;
    }
    Z(passe - precedente, Vrai);
    Suit(points, passe, niveauEncoche);
    if (ouvert) {
      Z(-passe, Vrai);
      Z(p_.HautDeg, Faux);
    }
    // Pecking: out of the hole and back, to clear the chips. Two points are a hole, a point given twice; an open
    // line of two points makes the same two rows, above clearance.
    if (points.size() == 2 && fond != passe) {
      Z(std::abs(passe), Vrai);
      Z(passe, Vrai);
    }
    precedente = passe;
    passe = Plonge(passe, p_.ProfPasse, profondeur);
    if (plan_.PassePremiere < std::numeric_limits<std::int16_t>::max()) ++plan_.PassePremiere;
    cadence_.Bat();
  } while (fond < precedente);
  if (!ouvert) {
    Z(static_cast<float>(-profondeur), Vrai);
    Z(p_.HautDeg, Faux);
  }
}

// The same with a way down along the loop at the beginning of the path. A closed one goes from pass to pass where
// the ramp has ended; an open one comes back to its start in the air, and down again in what the pass before has
// cut.
void Fraisage::UsineRampe(std::span<const PointTrace> points, const BoucleEntree& boucle, double profondeur) {
  const bool ouvert = EstOuvert(points);
  const auto fond = static_cast<float>(profondeur);
  const auto niveauEncoche = static_cast<float>(p_.MiniEncoche + profondeur);
  RampeEntree rampe(plan_, p_, points.first(boucle.dernier + 1), boucle.longueur, niveauEncoche);
  plan_.PassePremiere = 1;
  float precedente = 0;
  float passe = Plonge(0, p_.ProfPasse, profondeur);
  do {
    if (plan_.PassePremiere == 1 || ouvert) {
      PlanAjoute(plan_, p_, pos_, points.front(), Faux, 0);
      Z(-p_.HautDeg, Faux);
      if (precedente != 0) Z(precedente, Vrai);
      rampe.Commence(precedente);
    }
    rampe.Passe(precedente, passe);
    if (ouvert) rampe.Ferme(passe);
    pos_ = rampe.Place();
    if (ouvert) {
      Suit(points.subspan(boucle.dernier), passe, niveauEncoche);
      Z(-passe, Vrai);
      Z(p_.HautDeg, Faux);
    }
    precedente = passe;
    passe = Plonge(passe, p_.ProfPasse, profondeur);
    if (plan_.PassePremiere < std::numeric_limits<std::int16_t>::max()) ++plan_.PassePremiere;
  } while (fond < precedente);
  if (!ouvert) {
    Z(-rampe.Niveau(), Vrai);
    Z(p_.HautDeg, Faux);
  }
}

// Every job ends on the origin of the work with the tool on the surface.
void Fraisage::Termine() {
  PlanAjoute(plan_, p_, pos_, PointTrace{}, Faux, 0);
  Z(-p_.HautDeg, Faux);
}

// A length that a job can hold: false for what is no number or beyond `LongueurMax`.
bool Mesurable(double mm) { return std::abs(mm) <= LongueurMax; }

bool Mesurables(const ParametresPlan& p) {
  return Mesurable(p.HautDeg) && Mesurable(p.MiniEncoche) && Mesurable(p.PosX) && Mesurable(p.PosY) &&
         Mesurable(p.PosZ);
}

}  // namespace

ParametresPlan ParametresPlanDe(const Reglages& reglages, const TableMachine& table) {
  ParametresPlan p;
  p.HautDeg = reglages.HautDeg;
  p.ProfPasse = reglages.ProfPasse;
  p.MiniEncoche = reglages.MiniEncoche;
  p.AngleRampe = reglages.AngleRampe;
  p.Vitesse_Mat_H = reglages.Vitesse_Mat_H;
  p.Vitesse_Mat_V = reglages.Vitesse_Mat_V;
  p.VitesseMaxX = table.VitesseMaxX;
  p.VitesseMaxY = table.VitesseMaxY;
  p.VitesseMaxZ = table.VitesseMaxZ;
  return p;
}

std::vector<UsinageTrace> UsinagesDe(const Document& document) {
  const IndexCodes index(document);
  std::vector<UsinageTrace> usinages;
  usinages.reserve(document.TraceDecale.size());
  for (const SequenceDecalee& trace : document.TraceDecale) {
    const ProprietesSequence p = ProprietesDe(document.Sequences, index, trace.Seq);
    usinages.push_back({p.Fraiser != Faux, p.Profondeur});
  }
  return usinages;
}

std::span<const Deplacement> LignesDe(const EtatPlan& plan) {
  if (plan.NbDeplacements < 1) return {};
  return {plan.TableDecoupe.begin() + 1, plan.TableDecoupe.begin() + plan.NbDeplacements + 1};
}

std::span<Deplacement> LignesMues(EtatPlan& plan) {
  if (plan.NbDeplacements < 2) return {};
  return {plan.TableDecoupe.begin() + 2, plan.TableDecoupe.begin() + plan.NbDeplacements + 1};
}

std::span<const Deplacement> LignesMues(const EtatPlan& plan) {
  const auto lignes = LignesDe(plan);
  return lignes.empty() ? lignes : lignes.subspan(1);
}

void InitialisePlan(EtatPlan& plan, const ParametresPlan& p) {
  plan.TableDecoupe.assign(2, Deplacement{});
  plan.NbDeplacements = 1;
  plan.TableDecoupe[1].X = static_cast<float>(p.PosX);
  plan.TableDecoupe[1].Y = static_cast<float>(p.PosY);
  plan.TableDecoupe[1].Z = static_cast<float>(p.PosZ);
  plan.CumulX = plan.CumulY = plan.CumulZ = 0;
  plan.PasCumulX = plan.PasCumulY = plan.PasCumulZ = 0;
  plan.ResteX = plan.ResteY = plan.ResteZ = 0;
}

void PlanAjoute(EtatPlan& plan, const ParametresPlan& p, const PointTrace& depart, const PointTrace& arrivee,
                Drapeau matiere, float v) {
  Deplacement* ligne = LignePlane(plan, p, depart, arrivee);
  if (ligne == nullptr) return;
  if (v == 0 && matiere != Faux) {
    ligne->Vitesse = EnFloat(p.Vitesse_Mat_H);  // as typed: the window asks about the limits before a run
    return;
  }
  const double x = arrivee.X - depart.X;
  const double y = arrivee.Y - depart.Y;
  const double voulue = v != 0 ? v : VitesseRapide;
  ligne->Vitesse = static_cast<float>(LimiteAxes(voulue, x, y, std::sqrt(x * x + y * y), p));
}

void PlanAjouteRampe(EtatPlan& plan, const ParametresPlan& p, const PointTrace& depart, const PointTrace& arrivee,
                     float z) {
  Deplacement* ligne = LignePlane(plan, p, depart, arrivee);
  if (ligne == nullptr) return;
  const double x = Ecart(depart.X, arrivee.X);
  const double y = Ecart(depart.Y, arrivee.Y);
  const double hauteur = Ecart(ligne->Z, z);
  Cumule(plan.CumulZ, plan.ResteZ, static_cast<float>(hauteur), hauteur, p.MmParPasZ);
  ligne->Z = z;
  ligne->dZ = PasLigne(plan.CumulZ, p.MmParPasZ, plan.PasCumulZ);
  const double longueur = std::sqrt(x * x + y * y + hauteur * hauteur);
  const double verticale = p.Vitesse_Mat_H * std::abs(hauteur) / longueur;
  const double v = verticale > p.Vitesse_Mat_V ? p.Vitesse_Mat_V * longueur / std::abs(hauteur) : p.Vitesse_Mat_H;
  ligne->Vitesse = EnFloat(v);
}

// A row in Z alone, also for a height of 0.
void PlanAjouteZ(EtatPlan& plan, const ParametresPlan& p, float deltaZ, Drapeau matiere, float v) {
  Deplacement& ligne = NouvelleLigne(plan);
  ligne.Z += deltaZ;
  Cumule(plan.CumulZ, plan.ResteZ, deltaZ, deltaZ, p.MmParPasZ);
  ligne.dZ = PasLigne(plan.CumulZ, p.MmParPasZ, plan.PasCumulZ);
  if (v != 0) {
    ligne.Vitesse = v;
  } else {
    ligne.Vitesse = matiere == Faux ? p.VitesseMaxZ : EnFloat(p.Vitesse_Mat_V);
  }
}

std::int64_t NombrePasses(double profondeur, double profPasse) {
  if (!(profPasse < 0)) return 0;
  const auto fond = static_cast<float>(profondeur);
  // The sums of the passes themselves, in their width: only they tell where a pass no longer goes any deeper, which
  // 24 bits of precision bring about within some 30 million passes.
  float passe = Plonge(0, profPasse, profondeur);
  std::int64_t passes = 1;
  while (fond < passe) {
    const float suivante = Plonge(passe, profPasse, profondeur);
    if (!(suivante < passe)) return 0;
    passe = suivante;
    ++passes;
  }
  return passes;
}

EstimationPlan EstimePlan(const ParametresPlan& p, std::span<const SequenceDecalee> traces,
                          std::span<const UsinageTrace> usinages) {
  EstimationPlan e;
  e.lignes = 5;  // the unused one, the position, the first rise, the two rows of the end
  if (!(p.ProfPasse < 0)) {
    e.jugement = JugementPlan::Passe;
    return e;
  }
  if (!Mesurables(p)) {
    e.jugement = JugementPlan::Coordonnee;
    return e;
  }
  std::unordered_map<double, std::int64_t> passesParProfondeur;
  for (std::size_t i = 0; i < traces.size(); ++i) {
    const std::vector<PointTrace>& points = traces[i].Points;
    if (points.empty() || !usinages[i].Fraiser) continue;
    const double profondeur = usinages[i].Profondeur;
    std::int64_t hauteurs = 0;  // rows that notches make in a pass
    bool mesurable = Mesurable(profondeur);
    Code2 avant;
    for (const PointTrace& point : points) {
      mesurable = mesurable && Mesurable(point.X) && Mesurable(point.Y);
      if (point.Cde == CodePE && avant != CodePE) hauteurs += 2;
      if (point.Cde == CodePU) hauteurs += 4;
      avant = point.Cde;
    }
    if (!mesurable) {
      e.jugement = JugementPlan::Coordonnee;
      return e;
    }
    const auto [place, nouvelle] = passesParProfondeur.try_emplace(profondeur, 0);
    if (nouvelle) place->second = NombrePasses(profondeur, p.ProfPasse);
    // a pass at most: rapid, descent, plunge, the cuts, the notches, two rows up, two of pecking
    std::int64_t parPasse = std::ssize(points) + hauteurs + 6;
    if (const auto boucle = BoucleDeRampe(p, points, profondeur)) {
      parPasse += LignesRampe(p, *boucle, profondeur, hauteurs);
    }
    e.lignes += place->second * parPasse;
    if (place->second == 0 || e.lignes > LimiteLignes) {
      e.jugement = JugementPlan::Passe;
      return e;
    }
  }
  return e;
}

void PlanifieTrace(EtatPlan& plan, const ParametresPlan& p, std::span<const SequenceDecalee> traces,
                   std::span<const UsinageTrace> usinages) {
  InitialisePlan(plan, p);
  PlanAjouteZ(plan, p, static_cast<float>(p.HautDeg - p.PosZ), Faux, 0);
  Fraisage fraisage(plan, p);
  for (std::size_t i = 0; i < traces.size(); ++i) {
    if (traces[i].Points.empty() || !usinages[i].Fraiser) continue;
    fraisage.Usine(traces[i].Points, usinages[i].Profondeur);
  }
  fraisage.Termine();
}

double VitesseLimite(std::span<const Deplacement> lignes, double vx, double vy) {
  double limite = 1e10;
  const auto duree = [](double ecart, double v) {  // s on one axis
    if (ecart == 0) return 0.0;
    return v > 0 ? ecart / v : std::numeric_limits<double>::infinity();
  };
  Cadence cadence;
  for (std::size_t i = 1; i < lignes.size(); ++i) {
    const double x = std::abs(Ecart(lignes[i - 1].X, lignes[i].X));
    const double y = std::abs(Ecart(lignes[i - 1].Y, lignes[i].Y));
    const double longueur = std::sqrt(x * x + y * y);
    if (longueur == 0) continue;
    limite = std::min(limite, longueur / std::max(duree(y, vy), duree(x, vx)));
    cadence.Bat();
  }
  return limite;
}

bool Depasse(double vitesse, double limite) {
  constexpr double Tolerance = 1e-6;  // mm/s
  return vitesse > limite + Tolerance;
}

}  // namespace ovelin
