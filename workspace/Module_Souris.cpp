#include "workspace/Module_Souris.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <unordered_map>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Prise.h"

namespace ovelin {

EtatSouris Souris;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Souris = EtatSouris{}; });

constexpr float Tremblement = 2 * TwipsParPixel;  // a press and release this near is no movement

PointTrace EnDessin(const TailleImage& taille, float x, float y) {
  return VersDessin(Vue, taille.hauteur, {x, y, CodePD, {}});
}

// Steps 1 to 3 of a press: the nearest path, alone or with Control added or taken away. A second click on the only
// selected path takes it away too.
SegmentProche Selectionne(const PointTrace& clic, bool controle, SuiteSouris& suite) {
  const SegmentProche proche = SegmentLePlusProche(TraceInitial, NbPoints, clic.X, clic.Y);
  const bool trouve = proche.code != Code2{};
  Code2 dernier;
  const bool seule = trouve && EstSelectionnee(proche.code) != Faux && NbSelectionnees(dernier) == 1;
  if (!controle) DeselectionneTout();
  if (trouve && (controle || !seule)) BasculeSelection(proche.code);
  SeqCourante = trouve ? proche.code : CodeAucun;
  Souris.bascule = controle && trouve ? proche.code : CodeAucun;
  if (trouve) {
    OrigineX = proche.X;
    OrigineY = proche.Y;
  }
  suite.initSeq = true;
  suite.redessine = true;
  return proche;
}

void Commence(Glissement glissement, const EvenementSouris& e, SuiteSouris& suite) {
  Souris.glissement = glissement;
  Souris.x0 = Souris.x1 = e.X;
  Souris.y0 = Souris.y1 = e.Y;
  Souris.ecart = 0;
  suite.outils = true;
  suite.bande = glissement == Glissement::Loupe || glissement == Glissement::Selection;
}

// A drag ends, or is given up because another button came down.
void Finit(SuiteSouris& suite) {
  if (Souris.glissement == Glissement::Aucun) return;
  suite.bande = Souris.glissement == Glissement::Loupe || Souris.glissement == Glissement::Selection;
  suite.prise = Souris.glissement == Glissement::Prise;
  AbandonneTirage();
  suite.outils = true;
  Souris.glissement = Glissement::Aucun;
}

// The paths that lie wholly within the band become the selection; with Control they are added to it.
void SelectionneBande(const TailleImage& taille, bool controle) {
  const PointTrace a = EnDessin(taille, Souris.x0, Souris.y0);
  const PointTrace b = EnDessin(taille, Souris.x1, Souris.y1);
  const float xmin = std::min(a.X, b.X);
  const float xmax = std::max(a.X, b.X);
  const float ymin = std::min(a.Y, b.Y);
  const float ymax = std::max(a.Y, b.Y);
  const IndexCodes index = IndexDocument();
  std::unordered_map<std::size_t, bool> dedans;  // by record; a code may stand in two runs
  for (const Etendue& e : EtenduesSequences()) {
    const std::span<const PointTrace> run = PointsDe(TraceInitial, e);
    const bool toute = std::all_of(run.begin(), run.end(), [&](const PointTrace& p) {
      return p.X >= xmin && p.X <= xmax && p.Y >= ymin && p.Y <= ymax;
    });
    const auto fiche = index.Fiche(e.code);
    if (!fiche) continue;
    const auto [it, neuve] = dedans.try_emplace(*fiche, toute);
    if (!neuve) it->second = it->second && toute;
  }
  if (controle) {
    BasculeSelection(Souris.bascule);  // as it was before the press
  } else {
    DeselectionneTout();
  }
  for (const auto& [fiche, toute] : dedans) {
    if (toute) Sequences[fiche].Selection = Vrai;
  }
}

}  // namespace

SegmentProche SegmentLePlusProche(const std::vector<PointTrace>& points, std::int32_t nbPoints, float x, float y) {
  SegmentProche proche;
  double meilleur = std::numeric_limits<double>::infinity();
  const std::size_t n = nbPoints > 0 ? std::min(points.size(), base::Indice(nbPoints)) : 0;
  for (std::size_t i = 1; i < n; ++i) {
    const PointTrace& a = points[i - 1];
    const PointTrace& b = points[i];
    if (a.Seq != b.Seq) continue;
    const double dx = Ecart(a.X, b.X);
    const double dy = Ecart(a.Y, b.Y);
    const double px = Ecart(a.X, x);
    const double py = Ecart(a.Y, y);
    const double carre = dx * dx + dy * dy;
    const double t = carre > 0 ? std::clamp((px * dx + py * dy) / carre, 0.0, 1.0) : 0.0;
    const double ex = px - t * dx;
    const double ey = py - t * dy;
    const double distance = ex * ex + ey * ey;
    if (!(distance < meilleur)) continue;
    meilleur = distance;
    proche = {a.Seq, static_cast<float>(a.X + t * dx), static_cast<float>(a.Y + t * dy)};
  }
  return proche;
}

SuiteSouris mnu_Lever_Click() {
  SuiteSouris suite;
  suite.outils = true;
  if (Souris.mnu_Lever) {
    Souris.mnu_Lever = false;
    return suite;
  }
  if (!(LargeurEncoche > 0)) {
    Message(Textes::EncocheSansLargeur, Icone::Exclamation);
    suite.pageOutil = true;
    return suite;
  }
  Finit(suite);
  Souris.mnu_Lever = true;
  Souris.mnu_ZoomSelection = false;
  return suite;
}

SuiteSouris mnu_ZoomSelection_Click() {
  SuiteSouris suite;
  suite.outils = true;
  Finit(suite);
  Souris.mnu_ZoomSelection = !Souris.mnu_ZoomSelection;
  if (Souris.mnu_ZoomSelection) Souris.mnu_Lever = false;
  return suite;
}

SuiteSouris Echappe() {
  SuiteSouris suite;
  if (Souris.glissement != Glissement::Aucun) {
    Finit(suite);
  } else if (Souris.mnu_Lever || Souris.mnu_ZoomSelection) {
    suite = RelacheOutils();
  } else if (Code2 dernier; NbSelectionnees(dernier) > 0) {
    DeselectionneTout();
    suite.initSeq = true;
    suite.redessine = true;
  }
  return suite;
}

SuiteSouris RelacheOutils() {
  SuiteSouris suite;
  Finit(suite);
  Souris = EtatSouris{};
  suite.outils = true;
  return suite;
}

SuiteSouris PB1_MouseDown(const EvenementSouris& e, const TailleImage& taille) {
  SuiteSouris suite;
  Finit(suite);
  if (TraceInitial.empty()) return suite;
  const PointTrace clic = EnDessin(taille, e.X, e.Y);
  const bool selectionne = e.bouton == Bouton1 && !Souris.mnu_Lever;
  const bool prend = selectionne && !e.majuscule && !Souris.mnu_ZoomSelection;
  if (prend) PrepareTirage(e, taille);
  SegmentProche proche;
  if (selectionne) proche = Selectionne(clic, e.controle, suite);
  if (e.bouton == Bouton1 && !e.majuscule && Souris.mnu_ZoomSelection) {
    Commence(Glissement::Loupe, e, suite);
  } else if ((e.bouton == Bouton2 && !e.majuscule) || e.bouton == BoutonMilieu) {
    Commence(Glissement::Panorama, e, suite);
  } else if (Souris.mnu_Lever && OperationCarte) {
    Svc.Bip();
  } else if (Souris.mnu_Lever) {
    // Lists and picture are the procedures' own.
    if (e.majuscule) {
      EnleveAttache(clic.X, clic.Y);
    } else {
      AjouteAttache(clic.X, clic.Y);
    }
  } else if (selectionne && e.majuscule) {
    Commence(Glissement::Selection, e, suite);
  } else if (prend) {
    CommenceTirage(e, taille, proche);
    Souris.glissement = Glissement::Prise;
  }
  return suite;
}

SuiteSouris PB1_MouseMove(const EvenementSouris& e, const TailleImage& taille) {
  SuiteSouris suite;
  suite.positions = true;
  const float dx = e.X - Souris.x1;
  const float dy = e.Y - Souris.y1;
  const bool panorama = Souris.glissement == Glissement::Panorama;
  if (Souris.glissement == Glissement::Prise) {
    suite.prise = (e.bouton & Bouton1) != 0 && Tire(e, taille, suite);
  } else if (Souris.glissement != Glissement::Aucun && (dx != 0 || dy != 0)) {
    const unsigned tenus = panorama ? Bouton2 | BoutonMilieu : unsigned{Bouton1};
    if ((e.bouton & tenus) != 0) {
      Souris.x1 = e.X;
      Souris.y1 = e.Y;
      Souris.ecart = std::max(Souris.ecart, std::hypot(e.X - Souris.x0, e.Y - Souris.y0));
      suite.bande = !panorama;
      if (panorama) {
        Vue = DeplaceVue(Vue, dx, dy);
        suite.redessine = true;
      }
    }
  }
  suite.panneaux = PanneauxPosition(taille, e.X, e.Y);
  return suite;
}

SuiteSouris PB1_MouseUp(const EvenementSouris& e, const TailleImage& taille) {
  SuiteSouris suite;
  const Glissement glissement = Souris.glissement;
  const bool sien = glissement == Glissement::Panorama ? e.bouton != Bouton1 : e.bouton == Bouton1;
  if (glissement == Glissement::Aucun || !sien) return suite;
  if (glissement == Glissement::Prise) {
    Souris.glissement = Glissement::Aucun;
    suite.prise = LacheTirage();
    suite.initSeq = suite.prise;
    return suite;
  }
  if (glissement == Glissement::Panorama) {
    suite.menu = e.bouton == Bouton2 && Souris.ecart <= Tremblement;
  } else {
    Souris.x1 = e.X;
    Souris.y1 = e.Y;
    suite.redessine = true;
    if (glissement == Glissement::Loupe) {
      Vue = ZoomeSurRectangle(Vue, taille, Souris.x0, Souris.y0, e.X, e.Y);
      Souris.mnu_ZoomSelection = false;
    } else if (std::hypot(e.X - Souris.x0, e.Y - Souris.y0) > Tremblement) {
      SelectionneBande(taille, e.controle);
      suite.initSeq = true;
    }
  }
  Finit(suite);
  return suite;
}

Curseur CurseurSouris() {
  if (Souris.glissement == Glissement::Panorama) return Curseur::Main;
  if (Souris.glissement == Glissement::Loupe || Souris.glissement == Glissement::Selection) {
    return Curseur::Rectangle;
  }
  return Souris.mnu_Lever ? Curseur::CiblePetit : Curseur::Defaut;
}

std::string BulleSouris() { return Souris.mnu_Lever ? Traduire(Textes::BulleAttache) : std::string(); }

bool BandeSouris(float& x0, float& y0, float& x1, float& y1) {
  if (Souris.glissement != Glissement::Loupe && Souris.glissement != Glissement::Selection) return false;
  x0 = Souris.x0, y0 = Souris.y0, x1 = Souris.x1, y1 = Souris.y1;
  return true;
}

std::array<std::string, 3> PanneauxPosition(const TailleImage& taille, float x, float y) {
  if (TraceInitial.empty()) return {};
  const PointTrace p = EnDessin(taille, x, y);
  return {"x : " + Formate(p.X, "0.00") + " mm", "y : " + Formate(p.Y, "0.00") + " mm", std::string()};
}

}  // namespace ovelin
