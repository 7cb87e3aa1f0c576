// Reads SVG. What stands in the file is what is read: declared entities stay as they are written, other files and
// scripts are never touched.
#include "closed/pathwerk/lecture/svg/Svg.h"

#include <algorithm>
#include <exception>
#include <pugixml.hpp>
#include <string>
#include <utility>

#include "base/Indices.h"
#include "base/Texte.h"
#include "closed/pathwerk/lecture/Lignes.h"
#include "closed/pathwerk/lecture/svg/Illustration.h"

namespace pathwerk::lecture::svg {

namespace {

// Blanks between elements are kept, since between two words of a text they are a blank of that text.
constexpr unsigned Analyse = pugi::parse_default | pugi::parse_ws_pcdata;

bool Refus(std::string_view data, const pugi::xml_parse_result& fin, Lecture& lecture) {
  const std::size_t place = base::Indice(std::max<std::ptrdiff_t>(fin.offset, 0));
  // No element ends between the fault and the last byte: the file was cut there, and what came before is whole.
  const bool coupe = fin.encoding == pugi::encoding_utf8 && fin.status != pugi::status_no_document_element &&
                     data.substr(0, data.size() - 1).find('>', place) == std::string_view::npos;
  if (coupe) return false;
  if (fin.status == pugi::status_out_of_memory) {
    lecture.Refuse(Erreur::Memoire, 0, "");
  } else {
    lecture.Refuse(Erreur::Svg, LigneDe(data, std::min(place, data.size())), fin.description());
  }
  return true;
}

void Lit(std::string_view data, const OptionsLecture& options, const TraceLettres& lettres, Lecture& lecture,
         std::size_t octetsParPartage) {
  if (data.starts_with("\x1F\x8B")) return lecture.Refuse(Erreur::Svg, 0, "gzip");
  pugi::xml_document document;
  const pugi::xml_parse_result fin = document.load_buffer(data.data(), data.size(), Analyse);
  if (!fin && Refus(data, fin, lecture)) return;
  lecture.rapport.Tronque = !fin;
  const pugi::xml_node racine = document.document_element();
  if (NomLocal(racine) != "svg") {
    lecture.rapport.Tronque = false;
    return lecture.Refuse(Erreur::Svg, 0, racine.name());
  }
  const std::string_view lignes = fin.encoding == pugi::encoding_utf8 ? data : std::string_view();
  if (octetsParPartage > 0 && options.Fils > 1 && data.size() > octetsParPartage) {
    Lecture partagee = lecture;
    Illustration illustration(document, lignes, options, lettres, partagee, {octetsParPartage, options.Fils});
    illustration.Dessine(racine, data.size());
    if (!illustration.Douteux()) {
      lecture = std::move(partagee);
      return;
    }
  }
  Illustration(document, lignes, options, lettres, lecture).Dessine(racine, data.size());
}

}  // namespace

void LireSvgAvec(std::string_view data, const OptionsLecture& options, const TraceLettres& lettres,
                 Lecture& lecture, std::size_t octetsParPartage) {
  lecture.rapport.Format = "SVG";
  lecture.souder = true;  // many programs write outlines as loose pieces
  try {
    Lit(data, options, lettres, lecture, octetsParPartage);
  } catch (const std::exception&) {
    lecture.traits.clear();
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
}

void LireSvg(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  LireSvgAvec(data, options, LettresDuSysteme(), lecture);
}

}  // namespace pathwerk::lecture::svg
