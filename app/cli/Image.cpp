#include "app/cli/Image.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin::cli {

namespace {

constexpr double LargeurMax = 1600;
constexpr double HauteurMax = 1200;
constexpr double Bord = 50;  // units around the drawing

struct Vue {
  double xmin = 0, ymin = 0, zoom = 1, largeur = 0, hauteur = 0;
  [[nodiscard]] double X(float x) const { return (static_cast<double>(x) - xmin) * zoom + Bord; }
  [[nodiscard]] double Y(float y) const { return hauteur - ((static_cast<double>(y) - ymin) * zoom + Bord); }
};

// Scale and size from everything that is shown, the machine's origin included.
Vue Cadre(bool initial, bool outil) {
  double x0 = 0;
  double x1 = 0;
  double y0 = 0;
  double y1 = 0;
  const auto etend = [&](const PointTrace& p) {
    x0 = std::min(x0, static_cast<double>(p.X));
    x1 = std::max(x1, static_cast<double>(p.X));
    y0 = std::min(y0, static_cast<double>(p.Y));
    y1 = std::max(y1, static_cast<double>(p.Y));
  };
  if (initial) std::for_each(TraceInitial.begin(), TraceInitial.end(), etend);
  if (outil) {
    for (const SequenceDecalee& s : TraceDecale) std::for_each(s.Points.begin(), s.Points.end(), etend);
  }
  Vue vue;
  vue.xmin = x0;
  vue.ymin = y0;
  const double l = std::max(x1 - x0, 1e-6);
  const double h = std::max(y1 - y0, 1e-6);
  vue.zoom = std::min((LargeurMax - 2 * Bord) / l, (HauteurMax - 2 * Bord) / h);
  vue.largeur = std::ceil(l * vue.zoom + 2 * Bord);
  vue.hauteur = std::ceil(h * vue.zoom + 2 * Bord);
  return vue;
}

void Encre(cairo_t* c, std::int32_t couleur) {
  cairo_set_source_rgb(c, (couleur & 255) / 255.0, ((couleur >> 8) & 255) / 255.0, ((couleur >> 16) & 255) / 255.0);
}

template <class It>
void Ligne(cairo_t* c, const Vue& vue, It debut, It fin) {
  if (debut == fin) return;
  cairo_move_to(c, vue.X(debut->X), vue.Y(debut->Y));
  for (It i = debut; i != fin; ++i) cairo_line_to(c, vue.X(i->X), vue.Y(i->Y));
  cairo_stroke(c);
}

void Trou(cairo_t* c, const Vue& vue, const PointTrace& p, double rayon) {
  cairo_new_sub_path(c);
  cairo_arc(c, vue.X(p.X), vue.Y(p.Y), rayon, 0, 2 * Pi);
  cairo_stroke(c);
}

void DessineInitial(cairo_t* c, const Vue& vue) {
  Encre(c, Regl.CouleurInitial);
  cairo_set_line_width(c, 1.2);
  for (const Etendue& e : EtenduesSequences()) {
    const auto run = PointsDe(TraceInitial, e);
    Ligne(c, vue, run.begin(), run.end());
    if (e.nombre == 2 && pathwerk::MemePlace(run[0], run[1])) Trou(c, vue, run[0], 3);
  }
  Encre(c, Regl.CouleurEncoche);
  for (const PointTrace& p : TraceInitial) {
    if (p.Cde == CodePC) Trou(c, vue, p, 5);
  }
}

// The stretches on which the tool passes over a bridge: from an entry to the exit behind it.
void DessineEncoches(cairo_t* c, const Vue& vue, const std::vector<PointTrace>& points) {
  Encre(c, Regl.CouleurEncoche);
  cairo_set_line_width(c, 3.0);
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    if (points[i].Cde == CodePE)
      Ligne(c, vue, points.begin() + static_cast<std::ptrdiff_t>(i),
            points.begin() + static_cast<std::ptrdiff_t>(i) + 2);
    if (points[i].Cde == CodePC && i > 0 && points[i - 1].Cde == CodePE) {
      Ligne(c, vue, points.begin() + static_cast<std::ptrdiff_t>(i),
            points.begin() + static_cast<std::ptrdiff_t>(i) + 2);
    }
  }
}

void DessineOutil(cairo_t* c, const Vue& vue) {
  PointTrace dernier{0, 0, CodePD, {}};
  const double pointille[] = {3, 4};
  const IndexCodes index = IndexDocument();
  for (const SequenceDecalee& s : TraceDecale) {
    ProprietesSequence proprietes;
    LitSequence(index, s.Seq, proprietes);
    if (s.Points.empty() || proprietes.Fraiser == Faux) continue;
    const PointTrace air[] = {dernier, s.Points.front()};
    cairo_set_line_width(c, 0.6);
    cairo_set_dash(c, pointille, 2, 0);
    Encre(c, Couleur(150, 150, 150));
    Ligne(c, vue, air, air + 2);
    cairo_set_dash(c, nullptr, 0, 0);
    Encre(c, Regl.CouleurDecalage);
    cairo_set_line_width(c, 1.0);
    Ligne(c, vue, s.Points.begin(), s.Points.end());
    DessineEncoches(c, vue, s.Points);
    Encre(c, Regl.CouleurDecalage);
    cairo_set_line_width(c, 1.0);
    if (s.Points.size() == 2 && pathwerk::MemePlace(s.Points[0], s.Points[1])) {
      Trou(c, vue, s.Points[0], std::max(2.0, RayonFraise * vue.zoom));
    }
    dernier = s.Points.back();
  }
}

// A label in the outlines that the program mills: base line at (x, y), `taille` units high. Without any font there
// is none.
void Etiquette(cairo_t* c, double x, double y, double taille, const std::string& texte) {
  std::vector<PointTrace> points;
  if (pathwerk::Texte(points, texte, "DejaVu Sans", 0, 0) <= 0) {
    const std::vector<std::string> polices = pathwerk::ListePolices();
    if (polices.empty() || pathwerk::Texte(points, texte, polices.front(), 0, 0) <= 0) return;
  }
  const double echelle = taille / pathwerk::HauteurTexte;
  Code2 dernier = CodeAucun;
  for (const PointTrace& p : points) {
    const double px = x + static_cast<double>(p.X) * echelle;
    const double py = y - static_cast<double>(p.Y) * echelle;
    if (p.Seq != dernier) {
      cairo_move_to(c, px, py);
    } else {
      cairo_line_to(c, px, py);
    }
    dernier = p.Seq;
  }
  cairo_fill(c);
}

// The axes through the machine's origin and a bar of a round length.
void DessineRepere(cairo_t* c, const Vue& vue) {
  Encre(c, Couleur(0, 110, 0));
  cairo_set_line_width(c, 1.0);
  const double x = vue.X(0);
  const double y = vue.Y(0);
  constexpr double Fleche = 30;
  cairo_move_to(c, x, y);
  cairo_line_to(c, x + Fleche, y);
  cairo_line_to(c, x + Fleche - 6, y - 3);
  cairo_move_to(c, x, y);
  cairo_line_to(c, x, y - Fleche);
  cairo_line_to(c, x - 3, y - Fleche + 6);
  cairo_stroke(c);
  constexpr double Taille = 13;
  Etiquette(c, x + Fleche + 3, y + 4, Taille, "X");
  Etiquette(c, x - 4, y - Fleche - 4, Taille, "Y");

  const double place = vue.largeur / 4 / vue.zoom;  // mm
  double barre = std::pow(10.0, std::floor(std::log10(std::max(place, 1e-6))));
  if (barre * 5 <= place) {
    barre *= 5;
  } else if (barre * 2 <= place) {
    barre *= 2;
  }
  const double bas = vue.hauteur - 14;
  cairo_move_to(c, Bord, bas - 4);
  cairo_line_to(c, Bord, bas);
  cairo_line_to(c, Bord + barre * vue.zoom, bas);
  cairo_line_to(c, Bord + barre * vue.zoom, bas - 4);
  cairo_stroke(c);
  Etiquette(c, Bord + barre * vue.zoom + 6, bas + 4, Taille, TexteNombre(barre) + " mm");
}

void Dessine(cairo_t* c, const Vue& vue, bool initial, bool outil) {
  cairo_set_source_rgb(c, 1, 1, 1);
  cairo_paint(c);
  cairo_set_line_join(c, CAIRO_LINE_JOIN_ROUND);
  DessineRepere(c, vue);
  if (initial) DessineInitial(c, vue);
  if (outil) DessineOutil(c, vue);
}

cairo_status_t Recoit(void* sortie, const unsigned char* octets, unsigned int nombre) {
  static_cast<std::string*>(sortie)->append(reinterpret_cast<const char*>(octets), nombre);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::string ImageSvg(bool initial, bool outil) {
  const Vue vue = Cadre(initial, outil);
  std::string octets;
  cairo_surface_t* surface = cairo_svg_surface_create_for_stream(Recoit, &octets, vue.largeur, vue.hauteur);
  cairo_t* c = cairo_create(surface);
  Dessine(c, vue, initial, outil);
  const bool bon = cairo_status(c) == CAIRO_STATUS_SUCCESS;
  cairo_destroy(c);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  return bon ? octets : std::string();
}

std::string ImagePng(bool initial, bool outil) {
  const Vue vue = Cadre(initial, outil);
  cairo_surface_t* surface =
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(vue.largeur), static_cast<int>(vue.hauteur));
  cairo_t* c = cairo_create(surface);
  Dessine(c, vue, initial, outil);
  std::string octets;
  const bool bon = cairo_status(c) == CAIRO_STATUS_SUCCESS &&
                   cairo_surface_write_to_png_stream(surface, Recoit, &octets) == CAIRO_STATUS_SUCCESS;
  cairo_destroy(c);
  cairo_surface_destroy(surface);
  return bon ? octets : std::string();
}

}  // namespace ovelin::cli
