// Reads PDF by way of SVG: fills and strokes as they are painted, text as the outlines of its letters.
#include "closed/pathwerk/lecture/pdf/Pdf.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "closed/pathwerk/lecture/svg/Svg.h"

namespace pathwerk::lecture::pdf {

namespace {

using processus::FinOutil;
using processus::IssueOutil;

constexpr const char* Dessin = "dessin.pdf";
constexpr std::size_t DebutMax = 1024;  // bytes that may stand before the mark of the format

// Why the program has nothing to read. False when it has.
bool Refus(const FinOutil& fin, Lecture& lecture) {
  switch (fin.issue) {
    case IssueOutil::Fini:
      if (fin.code == 0) return false;
      lecture.Refuse(Erreur::Pdf, 0, "pdftocairo " + std::to_string(fin.code));
      return true;
    case IssueOutil::Absent:
      lecture.Refuse(Erreur::PopplerAbsent, 0, fin.detail);
      return true;
    case IssueOutil::Ecriture:
      lecture.Refuse(Erreur::Ecriture, 0, fin.detail);
      return true;
    case IssueOutil::Delai:
    case IssueOutil::Volume:
    case IssueOutil::Systeme:
      break;
  }
  lecture.Refuse(Erreur::Pdf, 0, fin.detail);
  return true;
}

void Lit(std::string_view data, const OptionsLecture& options, const PdfMoyens& moyens, Lecture& lecture) {
  if (data.substr(0, DebutMax).find("%PDF-") == std::string_view::npos) {
    return lecture.Refuse(Erreur::Pdf, 0, "%PDF-");
  }
  const std::string page = std::to_string(std::max(options.Page, 1));
  const std::array<processus::DepotOutil, 1> depots{{{Dessin, data}}};
  std::string svg;
  const FinOutil fin = processus::LanceOutil(
      moyens, {"-svg", "-noshrink", "-nocenter", "-f", page, "-l", page, Dessin, "-"}, depots,
      [&](std::string_view morceau) {
        svg += morceau;
        return true;
      },
      options.Avancement);
  if (Refus(fin, lecture)) return;
  svg::LireSvg(svg, options, lecture);
  // Places are of the text in between, which nobody sees.
  for (Trait& t : lecture.traits) t.ligne = 0;
  lecture.rapport.Ligne = 0;
  if (lecture.rapport.Numero == Erreur::Svg) lecture.rapport.Numero = Erreur::Pdf;
}

}  // namespace

void LirePdfAvec(std::string_view data, const OptionsLecture& options, const PdfMoyens& moyens, Lecture& lecture) {
  try {
    Lit(data, options, moyens, lecture);
  } catch (const std::exception&) {
    lecture.traits.clear();
    lecture.Refuse(Erreur::Memoire, 0, "");
  }
  lecture.rapport.Format = "PDF";
}

void LirePdf(std::string_view data, const OptionsLecture& options, Lecture& lecture) {
  PdfMoyens moyens;
  // Pictures in it are printed as text, some times as long as they stand there.
  moyens.volume = std::max(moyens.volume, std::min(8 * data.size(), std::size_t{128} << 20));
  LirePdfAvec(data, options, moyens, lecture);
}

}  // namespace pathwerk::lecture::pdf
