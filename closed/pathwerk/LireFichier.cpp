// The one way in: a file, its format, its reader, the assembly, the message.
#include <algorithm>
#include <cerrno>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "base/Arret.h"
#include "base/Boite.h"
#include "base/Fichiers.h"
#include "base/RendMemoire.h"
#include "base/Texte.h"
#include "closed/pathwerk/Formats.h"
#include "closed/pathwerk/assemblage/Assemblage.h"
#include "closed/pathwerk/commun/Echange.h"

namespace pathwerk {

namespace {

using lecture::Lecture;

constexpr std::size_t SeuilRend =
    4U << 20;  // bytes of a file whose reading leaves memory that is worth giving back

// Text formats are read as text: without a byte order mark, and narrowed when it is in 16-bit units (what lies
// beyond Latin-1 is of no use to a drawing and becomes "?").
void Uniformise(std::string& octets) {
  if (octets.starts_with("\xEF\xBB\xBF")) {
    octets.erase(0, 3);
    return;
  }
  const bool petit = octets.starts_with("\xFF\xFE");
  if (!petit && !octets.starts_with("\xFE\xFF")) return;
  std::size_t n = 0;
  for (std::size_t i = 2; i + 1 < octets.size(); i += 2) {
    const char bas = octets[petit ? i : i + 1];
    const char haut = octets[petit ? i + 1 : i];
    octets[n++] = haut == 0 ? bas : '?';
  }
  octets.resize(n);
}

void Lit(const std::string& extension, std::string& octets, const OptionsLecture& options, Lecture& lecture) {
  const LigneFormat* format = TrouveFormat(extension, octets);
  if (format == nullptr) return lecture.Refuse(Erreur::FormatInconnu, 0, "");
  if (format->texte) Uniformise(octets);
  format->lit(octets, options, lecture);
}

std::string TexteSucces(const RapportLecture& r) {
  std::string t;
  const auto ajoute = [&t](const std::string& morceau) { t += (t.empty() ? "" : ", ") + morceau; };
  if (r.Tronque) ajoute("EOF");
  for (const auto& [genre, nombre] : r.Ignores) ajoute(genre + " " + std::to_string(nombre));
  return t;
}

std::string TexteEchec(const std::string& chemin, const RapportLecture& r) {
  std::string t = base::NomDe(chemin);
  if (r.Ligne > 0) t += ":" + std::to_string(r.Ligne);
  if (!r.Detail.empty()) t += ": " + r.Detail;
  for (char& c : t) {
    if (base::Octet(c) < ' ') c = ' ';
  }
  return t;
}

// Where no path says anything, nothing is handed on.
void PrendCalques(Lecture& lecture, Importation& lu) {
  std::vector<std::uint16_t>& places = lu.CalquesDesChemins;
  if (std::all_of(places.begin(), places.end(), [](std::uint16_t p) { return p == 0; })) {
    places.clear();
  } else {
    lu.Calques = lecture.calques.Prend();
  }
}

std::int32_t Ouvre(Importation& lu, const std::string& chemin, const OptionsLecture& options, Lecture& lecture) {
  std::string octets;
  if (const int raison = base::LitFichier(chemin, octets); raison != 0) {
    if (raison == ENOMEM) {
      lecture.Refuse(Erreur::Memoire, 0, "");
    } else {
      lecture.Refuse(Erreur::Ouverture, 0, base::TexteErreur(raison));
    }
    return Numero(lecture.rapport.Numero);
  }
  const auto avance = [&](double part) {
    if (options.Avancement) options.Avancement(part);
  };
  avance(0.1);
  Lit(Extension(chemin), octets, options, lecture);
  const bool rend = options.Fils > 1 && octets.size() >= SeuilRend;
  std::string().swap(octets);
  avance(0.7);
  if (base::ArretDemande()) return 0;
  const std::int32_t n = assemblage::Assemble(lecture, options, lu.Points, &lu.CalquesDesChemins);
  PrendCalques(lecture, lu);
  if (rend) base::RendMemoire();
  avance(1);
  return n;
}

void Mesure(Importation& lu) {
  if (lu.Points.empty()) return;
  auto boite = base::Boite<float>::De(lu.Points[0].X, lu.Points[0].Y);
  for (const PointTrace& p : lu.Points) boite.Etend(p.X, p.Y);
  lu.Xmin = boite.x0, lu.Xmax = boite.x1, lu.Ymin = boite.y0, lu.Ymax = boite.y1;
}

}  // namespace

Importation ImporteFichier(const std::string& chemin, const OptionsLecture& options) {
  const std::string nom = SansNul(chemin);
  Importation lu;
  Lecture lecture;
  const auto manque = [&] {
    lu = Importation{};
    lecture.Refuse(Erreur::Memoire, 0, "");
    lu.Nombre = Numero(Erreur::Memoire);
  };
  try {
    lu.Nombre = Ouvre(lu, nom, options, lecture);
  } catch (const std::bad_alloc&) {
    manque();
  } catch (const std::length_error&) {
    manque();
  }
  if (lu.Nombre > 0) Mesure(lu);
  lu.Rapport = std::move(lecture.rapport);
  lu.Message = Coupe(lu.Nombre < 0 ? TexteEchec(nom, lu.Rapport) : TexteSucces(lu.Rapport), LongueurMessage);
  return lu;
}

std::int32_t LireFichier(std::vector<PointTrace>& points, const std::string& chemin, float& Xmin, float& Xmax,
                         float& Ymin, float& Ymax, std::string& message) {
  std::vector<PointTrace>().swap(points);
  Importation lu = ImporteFichier(chemin);
  points = std::move(lu.Points);
  if (lu.Nombre > 0) Xmin = lu.Xmin, Xmax = lu.Xmax, Ymin = lu.Ymin, Ymax = lu.Ymax;
  message = EnMessage(std::move(lu.Message));
  return lu.Nombre;
}

}  // namespace pathwerk
