// Real drawings by others, held against what independent programs say of them, and the samples of the product.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "tests/support/Corpus.h"
#include "tests/unit/closed/pathwerk/lecture/dxf/Outils.h"

using namespace essai;
using pathwerk::Erreur;
using pathwerk::Vec2;
using pathwerk::lecture::Lecture;
using pathwerk::lecture::Nature;
using pathwerk::lecture::Trait;
namespace fs = std::filesystem;

namespace {

const fs::path DossierDuFormat = essai::DossierDessins("DXF");

std::string Octets(const fs::path& p) {
  std::ifstream f(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

struct Graphe {
  int fermes = 0;
  int ouverts = 0;
  int ramifies = 0;
  bool operator==(const Graphe&) const = default;
};

// Figures of ezdxf 0.18.1: curves and polylines after insertion of all blocks, closed and open; components of the
// graph of their ends, joined within 0.001 drawing units; box in drawing units. `unite`: mm to one of them.
//
// These count no points, faces, solids or hatches. The paths that come from such are named in `autres` by their
// place and left out of the comparison.
struct Dessin {
  const char* nom;
  double unite;
  int fermes;
  int ouverts;
  Graphe graphe;
  Boite boite;
  std::set<std::size_t> autres = {};
  // Polylines with the flag "closed" over two vertices: there and back on one line. They come as the open line.
  int deuxSommets = 0;
  double tolerance = 0.0105;  // mm: the chords' own, and the digits of the figures
};

const std::vector<Dessin> Reels = {
    {"ez_AC1003_lines.dxf", 1, 0, 22, {0, 0, 1}, {0, 0, 3.625, 1.625}},
    {"ez_bin_r12.dxf", 1, 0, 3, {0, 1, 0}, {335.718, 304.27, 595.878, 439.771}},
    // The last path is a 3DFACE.
    {"ez_poli_all210.dxf", 1, 14, 16, {14, 16, 0}, {1.4, -2.3938, 17.6516, 11.6466}, {30}, 2},
    {"ez_forms_r2018.dxf", 1, 40, 0, {40, 0, 0}, {-246, -1015, 770, -183.662}},
    {"sk_blocks2.dxf", 1, 1, 10, {3, 1, 0}, {165, 15, 285, 155}},
    {"sk_array_rotated.dxf", 25.4, 6, 0, {6, 0, 0}, {3.055, 2.305, 5.4271, 4.128}},
    // One boundary of a hatch is drawn by nothing else.
    {"sk_floorplan.dxf", 1, 81, 835, {128, 255, 6}, {-684.062, -220.633, 182.09, 351.367}, {33}},
    {"sk_issue42_r12_ocs.dxf", 1, 12, 16, {15, 0, 0}, {-178.854, -211.909, 105.146, -3.9086}},
    {"sk_issue29_nohdr.dxf", 1, 29, 0, {29, 0, 0}, {0, 0, 571.5, 317.5}},
    // The figures' box is itself only good to 0.03: by 200000 points on each arc it is (-204.9390, -203.9608,
    // 528.0625, 703.9608), and the two programs differ by 0.08.
    {"sk_ellipticalarcs2.dxf", 1, 0, 4, {0, 4, 0}, {-204.963, -203.988, 528.065, 703.965}, {}, 0, 0.04},
    {"sk_issue53_splines_r14.dxf", 25.4, 0, 121, {16, 0, 0}, {-24.239, -6.8881, -20.2703, -5.9383}},
    {"dp_arc1_fragment.dxf", 1, 0, 1, {0, 1, 0}, {-650.812, 347.317, -650.764, 347.526}},
    {"pl_spline4.dxf", 1, 0, 5, {1, 0, 0}, {0, 0, 300, 83.3333}},
    // 3DFACE, HATCH, three paths of a block that the other program could not insert, POINT, SOLID, two more HATCH.
    {"nd_sample_2018.dxf", 1, 5, 19, {5, 17, 0}, {0, -300, 1000, 100}, {3, 5, 7, 8, 9, 10, 12, 31, 32}},
};
// By hand from the entities of the files. The last path of the bracket is a POINT. The nameplate has two circles
// and a pocket; an ellipse whose turn ends 2e-7 before a whole one, eight pieces of outline, two heads of three
// lines and a spline.
const std::vector<Dessin> Echantillons = {
    {"equerre.dxf", 1, 6, 0, {6, 0, 0}, {0, 0, 100, 80}, {6}}, {"plaque.dxf", 1, 3, 16, {7, 1, 0}, {0, 0, 120, 60}},
    {"Carre.dxf", 1, 1, 0, {1, 0, 0}, {0, 0, 50, 50}},         {"Cercle.dxf", 1, 1, 0, {1, 0, 0}, {0, 0, 50, 50}},
    {"Octogone.dxf", 1, 1, 0, {1, 0, 0}, {0, 0, 50, 50}},
};
const std::vector<Dessin>& DessinsAttendus = essai::CorpusPresent() ? Reels : Echantillons;

// Ends nearer than the tolerance are one node; closed: every node of degree 2, branched: some node above.
Graphe GrapheDesBouts(const std::vector<Trait>& traits, double tolerance) {
  Graphe g;
  std::vector<Vec2> bouts;
  for (const Trait& t : traits) {
    if (t.nature == Nature::Ferme) ++g.fermes;
    if (t.nature != Nature::Ouvert) continue;
    bouts.push_back(t.points.front());
    bouts.push_back(t.points.back());
  }
  std::vector<std::size_t> noeud(bouts.size());
  for (std::size_t i = 0; i < noeud.size(); ++i) noeud[i] = i;
  const auto racine = [](std::vector<std::size_t>& parent, std::size_t i) {
    while (parent[i] != i) i = parent[i] = parent[parent[i]];
    return i;
  };
  for (std::size_t i = 0; i < bouts.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (std::hypot(bouts[i].x - bouts[j].x, bouts[i].y - bouts[j].y) <= tolerance) {
        noeud[racine(noeud, i)] = racine(noeud, j);
      }
    }
  }
  std::map<std::size_t, int> degre;
  for (std::size_t i = 0; i < bouts.size(); ++i) ++degre[racine(noeud, i)];
  std::vector<std::size_t> composante = noeud;
  for (std::size_t i = 0; i < bouts.size(); i += 2) composante[racine(composante, i)] = racine(composante, i + 1);
  std::map<std::size_t, std::pair<int, int>> extremes;  // least and greatest degree
  for (const auto& [n, d] : degre) {
    auto& e = extremes.try_emplace(racine(composante, n), d, d).first->second;
    e = {std::min(e.first, d), std::max(e.second, d)};
  }
  for (const auto& [c, e] : extremes) {
    if (e.second > 2) {
      ++g.ramifies;
    } else if (e.first == 2) {
      ++g.fermes;
    } else {
      ++g.ouverts;
    }
  }
  return g;
}

void Compare(const Dessin& d, Lecture l) {
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune) << l.rapport.Ligne << " " << l.rapport.Detail;
  EXPECT_FALSE(l.rapport.Tronque);
  std::vector<Trait> traits;
  for (std::size_t i = 0; i < l.traits.size(); ++i) {
    if (!d.autres.contains(i)) traits.push_back(l.traits[i]);
  }
  EXPECT_EQ(std::ranges::count(traits, Nature::Ferme, &Trait::nature), d.fermes - d.deuxSommets);
  EXPECT_EQ(std::ranges::count(traits, Nature::Ouvert, &Trait::nature), d.ouverts + d.deuxSommets);
  EXPECT_EQ(std::ranges::count(traits, Nature::Percage, &Trait::nature), 0);
  Graphe attendu = d.graphe;
  attendu.fermes -= d.deuxSommets;
  attendu.ouverts += d.deuxSommets;
  const Graphe g = GrapheDesBouts(traits, 0.001 * d.unite);
  EXPECT_EQ(g, attendu) << g.fermes << "/" << g.ouverts << "/" << g.ramifies;
  l.traits = traits;
  // Half a unit of the last digit given, and the chords.
  const double t = d.tolerance + 0.0005 * d.unite;
  AttendBoite(l, d.boite.xmin * d.unite, d.boite.ymin * d.unite, d.boite.xmax * d.unite, d.boite.ymax * d.unite, t);
}

}  // namespace

TEST(Corpus, AgreesWithIndependentFigures) {
  for (const Dessin& d : DessinsAttendus) {
    SCOPED_TRACE(d.nom);
    Compare(d, Lit(Octets(DossierDuFormat / d.nom)));
  }
}

TEST(Corpus, HasNoDrawingThatTheTableDoesNotHold) {
  long n = 0;
  for (const auto& e : fs::directory_iterator(DossierDuFormat)) n += e.path().extension() == ".dxf" ? 1 : 0;
  EXPECT_EQ(static_cast<std::size_t>(n), DessinsAttendus.size());
}

TEST(Corpus, WhatIsLeftOutIsCounted) {
  using Comptes = std::map<std::string, long>;
  if (!essai::CorpusPresent()) {
    EXPECT_EQ(Lit(Octets(DossierDuFormat / "equerre.dxf")).rapport.Ignores, (Comptes{{"TEXT", 1}}));
    EXPECT_EQ(Lit(Octets(DossierDuFormat / "plaque.dxf")).rapport.Ignores, (Comptes{{"LAYER", 2}}));  // frozen
    return;
  }
  // TEXT, MTEXT, DIMENSION and LEADER as counted by ezdxf; the four lines have no length.
  EXPECT_EQ(Lit(Octets(DossierDuFormat / "sk_floorplan.dxf")).rapport.Ignores,
            (Comptes{{"TEXT", 89}, {"DIMENSION", 63}, {"MTEXT", 9}, {"LEADER", 6}, {"HATCH", 12}, {"LINE", 4}}));
  EXPECT_EQ(Lit(Octets(DossierDuFormat / "sk_issue42_r12_ocs.dxf")).rapport.Ignores, (Comptes{{"DIMENSION", 13}}));
  const Comptes c = Lit(Octets(DossierDuFormat / "nd_sample_2018.dxf")).rapport.Ignores;
  EXPECT_EQ(c.at("DIMENSION"), 8);
  EXPECT_EQ(c.at("MLINE"), 2);
  EXPECT_EQ(c.at("INSERT"), 1);  // a table of scale 0
  EXPECT_EQ(c.at("POLYFACE"), 1);
  for (const char* genre : {"MESH", "RAY", "XLINE", "IMAGE", "WIPEOUT", "PDFUNDERLAY", "TEXT", "LEADER"}) {
    EXPECT_EQ(c.at(genre), 1) << genre;
  }
}

TEST(Corpus, PassesThroughLireFichier) {
  for (const Dessin& d : DessinsAttendus) {
    SCOPED_TRACE(d.nom);
    std::vector<pathwerk::PointTrace> points(1);
    float xmin = 0;
    float xmax = 0;
    float ymin = 0;
    float ymax = 0;
    std::string message(pathwerk::LongueurMessage, ' ');
    const auto n =
        pathwerk::LireFichier(points, (DossierDuFormat / d.nom).string(), xmin, xmax, ymin, ymax, message);
    ASSERT_GE(n, 2) << message;
    EXPECT_EQ(points.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(message.size(), pathwerk::LongueurMessage);
    if (!d.autres.empty()) continue;
    EXPECT_NEAR(xmin, d.boite.xmin * d.unite, d.tolerance + 0.001 * d.unite);
    EXPECT_NEAR(ymax, d.boite.ymax * d.unite, d.tolerance + 0.001 * d.unite);
  }
}

TEST(Samples, BracketHasItsOutlineHolesAndDrilling) {
  const Lecture l = Lit(Octets(fs::path(essai::DossierExemples()) / "equerre.dxf"));
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune);
  EXPECT_EQ(std::ranges::count(l.traits, Nature::Ferme, &Trait::nature), 6);
  EXPECT_EQ(std::ranges::count(l.traits, Nature::Percage, &Trait::nature), 1);
  AttendBoite(l, 0, 0, 100, 80, 1e-6);
  // Two legs of 30 mm less the five corners of radius 6, plus the fillet of radius 10: each quarter differs from
  // its square by (1 - pi/4) r^2.
  const double coin = 1 - 3.14159265358979 / 4;
  EXPECT_NEAR(Aire(l.traits.at(0).points), 100 * 30 + 30 * 50 - 5 * coin * 36 + coin * 100, 0.5);
}

TEST(Samples, NameplateHasLooseOutlinePocketsAndOrnament) {
  const Lecture l = Lit(Octets(fs::path(essai::DossierExemples()) / "plaque.dxf"));
  ASSERT_EQ(l.rapport.Numero, Erreur::Aucune);
  AttendBoite(l, 0, 0, 120, 60, 1e-6);
  EXPECT_EQ(Ignores(l, "LAYER"), 2);  // construction lines on a frozen layer
  // Outline of four lines and four arcs, two arrow heads of three lines: three contours; the wave stays open; the
  // screw holes, the pocket and its island are closed as they are.
  EXPECT_EQ(GrapheDesBouts(l.traits, 0.001), (Graphe{7, 1, 0}));
}
