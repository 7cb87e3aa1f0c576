#include "image/PeintFichier.h"

#include <cairo-svg.h>
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "base/Indices.h"
#include "image/Peintre.h"

namespace ovelin {

namespace {

constexpr const char* Police = "sans-serif";
constexpr double CorpsPolice = 12;  // pixels

struct Rend {
  void operator()(cairo_t* c) const { cairo_destroy(c); }
  void operator()(cairo_surface_t* s) const { cairo_surface_destroy(s); }
};
using Surface = std::unique_ptr<cairo_surface_t, Rend>;
using Toile = std::unique_ptr<cairo_t, Rend>;

void ChoisitPolice(cairo_t* c) {
  cairo_select_font_face(c, Police, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(c, CorpsPolice);
}

void Encre(cairo_t* c, std::int32_t couleur, double opacite = 1) {
  const auto part = [couleur](unsigned decalage) {
    return ((static_cast<std::uint32_t>(couleur) >> decalage) & 255U) / 255.0;
  };
  cairo_set_source_rgba(c, part(0), part(8), part(16), opacite);
}

class Peinture {
 public:
  Peinture(cairo_t* c, const Scene& scene, const Palette& palette)
      : c_(c),
        scene_(scene),
        palette_(palette),
        parPoints_(cairo_surface_get_type(cairo_get_target(c)) == CAIRO_SURFACE_TYPE_IMAGE) {
    ChoisitPolice(c_);
  }

  void Papier() {
    Encre(c_, palette_.papier);
    cairo_paint(c_);
  }
  // Ends and corners as in a window.
  void Ligne(const Primitive& p) {
    const double largeur = LargeurDe(p, palette_);
    std::vector<double> motif;
    for (const float tiret : MotifDe(palette_[p.role].style)) motif.push_back(tiret * largeur);
    cairo_set_dash(c_, motif.data(), base::Compte(motif.size()), 0);
    cairo_set_line_width(c_, largeur);
    cairo_set_line_cap(c_, p.mesure > 0 ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_SQUARE);
    cairo_set_line_join(c_, p.mesure > 0 ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_BEVEL);
    Suit(scene_.PointsDe(p));
    Teint(p);
    cairo_stroke(c_);
  }
  void Aire(const Primitive& p) {
    Suit(scene_.PointsDe(p));
    Remplit(p, CAIRO_FILL_RULE_EVEN_ODD);
  }
  void Points(const Primitive& p) {
    for (const PointEcran& q : scene_.PointsDe(p)) Cercle(q, p.mesure * Pixels / 2);
    Remplit(p);
  }
  void Carres(const Primitive& p) {
    const double cote = p.mesure * Pixels;
    for (const PointEcran& q : scene_.PointsDe(p)) {
      cairo_rectangle(c_, q.X * Pixels - cote / 2, q.Y * Pixels - cote / 2, cote, cote);
    }
    Remplit(p);
  }
  void Disque(const Primitive& p) {
    const Aspect& aspect = palette_[p.role];
    cairo_set_dash(c_, nullptr, 0, 0);
    cairo_set_line_width(c_, 1);
    for (const PointEcran& q : scene_.PointsDe(p)) {
      Cercle(q, p.mesure * Pixels);
      if (aspect.fond != SansFond) {
        Encre(c_, aspect.fond);
        cairo_fill_preserve(c_);
      }
      Teint(p);
      cairo_stroke(c_);
    }
  }
  void Fleches(const Primitive& p) {
    const auto points = scene_.PointsDe(p);
    for (std::size_t i = 0; i + 2 < points.size(); i += 3) {
      Suit(points.subspan(i, 3));
      cairo_close_path(c_);
    }
    Remplit(p);
  }
  void Texte(const Primitive& p) {
    Encre(c_, palette_[p.role].couleurTexte);
    const std::string& texte = scene_.Textes[p.texte];
    cairo_font_extents_t police;
    cairo_font_extents(c_, &police);
    cairo_text_extents_t etendue;
    cairo_text_extents(c_, texte.c_str(), &etendue);
    const PointEcran& place = scene_.PointsDe(p).front();
    cairo_move_to(c_, PiedX(place.X * Pixels, p.ancre, etendue.x_advance),
                  PiedY(place.Y * Pixels, p.ancre, police.ascent, police.descent));
    cairo_show_text(c_, texte.c_str());
    cairo_new_path(c_);
  }

  // On a picture of points each stroke replaces what the surface has there. A file of lines can't say that; there
  // the strokes of one opacity are a group, seen through as a whole.
  void PeintNappe(std::span<const Primitive> traits) {
    if (parPoints_) {
      cairo_push_group(c_);
      cairo_set_operator(c_, CAIRO_OPERATOR_SOURCE);
      for (const Primitive& p : traits) PeintPrimitive(*this, p);
      cairo_pop_group_to_source(c_);
      cairo_paint(c_);
      return;
    }
    for (std::size_t i = 0; i < traits.size();) {
      const double opacite = OpaciteDe(traits[i], palette_);
      cairo_push_group(c_);
      voile_ = opacite;
      for (const Role role = traits[i].role;
           i < traits.size() && traits[i].role == role && OpaciteDe(traits[i], palette_) == opacite; ++i) {
        PeintPrimitive(*this, traits[i]);
      }
      voile_ = 1;
      cairo_pop_group_to_source(c_);
      cairo_paint_with_alpha(c_, opacite);
    }
  }

 private:
  void Teint(const Primitive& p) {
    Encre(c_, palette_[p.role].couleur, std::min(OpaciteDe(p, palette_) / voile_, 1.0));
  }
  void Suit(std::span<const PointEcran> points) {
    cairo_new_sub_path(c_);
    for (const PointEcran& p : points) cairo_line_to(c_, p.X * Pixels, p.Y * Pixels);
  }
  void Cercle(const PointEcran& centre, double rayon) {
    cairo_new_sub_path(c_);
    cairo_arc(c_, centre.X * Pixels, centre.Y * Pixels, rayon, 0, 2 * Pi);
  }
  // Triangles and dots of one primitive may lie over each other; only an area has holes.
  void Remplit(const Primitive& p, cairo_fill_rule_t regle = CAIRO_FILL_RULE_WINDING) {
    Teint(p);
    cairo_set_fill_rule(c_, regle);
    cairo_fill(c_);
  }

  cairo_t* c_;
  const Scene& scene_;
  const Palette& palette_;
  bool parPoints_;    // a picture of points, not a file of lines
  double voile_ = 1;  // opacity that the group around the strokes gives them
};

// Whether all of it could be drawn.
bool Peint(cairo_surface_t* surface, const Scene& scene, const Palette& palette) {
  const Toile toile(cairo_create(surface));
  Peinture peinture(toile.get(), scene, palette);
  peinture.Papier();
  PeintPrimitives(peinture, scene);
  return cairo_status(toile.get()) == CAIRO_STATUS_SUCCESS;
}

cairo_status_t Recoit(void* sortie, const unsigned char* octets, unsigned int nombre) {
  static_cast<std::string*>(sortie)->append(reinterpret_cast<const char*>(octets), nombre);
  return CAIRO_STATUS_SUCCESS;
}

double EnPixels(float twips) { return std::ceil(twips * Pixels); }

}  // namespace

std::string PeintSvg(const Scene& scene, const Palette& palette, const TailleImage& taille) {
  std::string octets;
  const Surface surface(
      cairo_svg_surface_create_for_stream(Recoit, &octets, EnPixels(taille.largeur), EnPixels(taille.hauteur)));
  const bool bon = Peint(surface.get(), scene, palette);
  cairo_surface_finish(surface.get());
  return bon && cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? octets : std::string();
}

std::string PeintPng(const Scene& scene, const Palette& palette, const TailleImage& taille) {
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(EnPixels(taille.largeur)),
                                                   static_cast<int>(EnPixels(taille.hauteur))));
  std::string octets;
  const bool bon = Peint(surface.get(), scene, palette) &&
                   cairo_surface_write_to_png_stream(surface.get(), Recoit, &octets) == CAIRO_STATUS_SUCCESS;
  return bon ? octets : std::string();
}

MesureTexte MesureFichier() {
  return [](const std::string& texte) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1));
    const Toile toile(cairo_create(surface.get()));
    ChoisitPolice(toile.get());
    cairo_font_extents_t police;
    cairo_font_extents(toile.get(), &police);
    cairo_text_extents_t etendue;
    cairo_text_extents(toile.get(), texte.c_str(), &etendue);
    return TailleTexte{Twips(etendue.x_advance), Twips(police.ascent + police.descent)};
  };
}

}  // namespace ovelin
