#include "closed/pathwerk/lecture/dxf/Dessin.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace pathwerk::lecture::dxf {

namespace {

// The whole reading may take 60 times the file and 50 MB. What is drawn here gets the smaller half, the rest is
// for the joining of paths that follows.
constexpr std::size_t MemoireBase = 22'000'000;
constexpr std::size_t MemoireParOctet = 25;
constexpr std::size_t MemoireTrait = 96;  // a path beside its points
// Blocks are read again for each insertion; nested arrays of nothing would take no memory but all the time.
constexpr std::size_t RelectureBase = 16'000'000;
constexpr std::size_t RelectureParOctet = 100;
constexpr std::size_t PasAvancement = 1U << 20;

constexpr std::string_view CaractereCode = "\\U+";  // and four digits of base 16

// Characters that the code page of a file lacks stand in its names by their number.
std::string NomDecode(std::string_view nom) {
  constexpr std::size_t Chiffres = 4;
  std::string decode;
  for (std::size_t i = 0; i < nom.size();) {
    const std::string_view numero = nom.substr(i).starts_with(CaractereCode)
                                        ? nom.substr(i + CaractereCode.size()).substr(0, Chiffres)
                                        : std::string_view();
    std::uint32_t c = 0;
    const auto [fin, erreur] = std::from_chars(numero.data(), numero.data() + numero.size(), c, 16);
    const bool entier = numero.size() == Chiffres && erreur == std::errc() && fin == numero.data() + Chiffres;
    if (!entier || c < 0x80 || (c >= 0xD800 && c < 0xE000)) {
      decode += nom[i++];
      continue;
    }
    if (c >= 0x800) decode += static_cast<char>(0xE0 | c >> 12);
    decode += static_cast<char>(c >= 0x800 ? 0x80 | (c >> 6 & 0x3F) : 0xC0 | c >> 6);
    decode += static_cast<char>(0x80 | (c & 0x3F));
    i += CaractereCode.size() + Chiffres;
  }
  return decode;
}

}  // namespace

bool SansEtendue(const std::vector<Vec2>& points) {
  return std::ranges::all_of(points, [&](const Vec2& p) { return p == points.front(); });
}

Limites::Limites(std::size_t octets)
    : memoire(MemoireBase + MemoireParOctet * octets), relecture(RelectureBase + RelectureParOctet * octets) {}

Dessinateur::Dessinateur(LecteurGroupes& lecteur, const Sommaire& sommaire, const OptionsLecture& options,
                         Lecture& lecture, Limites& limites)
    : lecteur_(lecteur),
      sommaire_(sommaire),
      options_(options),
      lecture_(lecture),
      fleche_(options.Fleche > 1e-6 ? options.Fleche : 1e-6),
      budget_(limites.memoire),
      relecture_(limites.relecture) {}

void Dessinateur::Ignore(std::string_view genre) {
  std::string nom(genre.substr(0, 32));
  for (char& c : nom) {
    if (c < ' ' || c > '~') c = '?';
  }
  const auto& ignores = lecture_.rapport.Ignores;
  if (ignores.size() >= GenresMax && !ignores.contains(nom)) nom = "...";
  lecture_.Ignore(nom, 1, e_.ligne);
}

bool Dessinateur::Refuse(Erreur numero, long ligne, std::string_view detail) {
  if (!lecture_.Refuse()) lecture_.Refuse(numero, ligne, detail);
  return false;
}

bool Dessinateur::Memoire(long ligne) { return Refuse(Erreur::Memoire, ligne, e_.nom); }

Cadre Dessinateur::CadreDuDessin() const {
  Cadre cadre;
  cadre.m.ex.x = cadre.m.ey.y = cadre.m.ez.z = sommaire_.unite;
  return cadre;
}

void Dessinateur::Dessine() {
  if (sommaire_.papier > 0) lecture_.Ignore("PAPER_SPACE", sommaire_.papier);
  for (const SectionEntites& section : sommaire_.entites) {
    if (!DessineSection(section)) return;
  }
  RetireBordsCouverts();
}

bool Dessinateur::DessineSection(const SectionEntites& section) {
  lecteur_.Va(section.debut);
  return Suite(CadreDuDessin());
}

bool Dessinateur::DessineTranche(const Tranche& tranche) {
  const Cadre cadre = CadreDuDessin();
  Groupe g;
  lecteur_.Va(tranche.debut);
  do {
    if (lecteur_.Suivant(g) != Etat::Groupe) return false;
  } while (g.code != 0);
  while (lecteur_.Ici().position < tranche.suite.position) {
    if (FinDeSuite(g.texte) || !UneEntite(cadre, g)) return false;
  }
  return lecteur_.Ici() == tranche.suite && g.code == 0;
}

bool Dessinateur::Acheve(std::vector<TraitDeHachure>&& traits, long hachures) {
  traitsDeHachure_ = std::move(traits);
  hachures_ = hachures;
  RetireBordsCouverts();
  return !lecture_.Refuse();
}

void Dessinateur::Avance() {
  const std::size_t ici = lecteur_.Ici().position;
  if (ici < jalon_) return;
  jalon_ = ici + PasAvancement;
  if (options_.Avancement) {
    options_.Avancement(static_cast<double>(ici) / static_cast<double>(lecteur_.Taille()));
  }
}

bool Dessinateur::Suite(const Cadre& cadre) {
  Groupe g;
  do {
    const Etat etat = lecteur_.Suivant(g);
    if (etat == Etat::Faux) return Termine(FinEntite::Faux, g);
    if (etat != Etat::Groupe) return true;
  } while (g.code != 0);
  while (g.code == 0 && !FinDeSuite(g.texte)) {
    if (cadre.profondeur == 0) Avance();
    if (!UneEntite(cadre, g)) return !lecture_.Refuse();
  }
  return true;
}

// How the reading ended: true when the entity is whole; false ends the run.
bool Dessinateur::Termine(FinEntite fin, const Groupe& g) {
  switch (fin) {
    case FinEntite::Suite:
      return true;
    case FinEntite::Donnees:
      return CompleteALaFin(e_);
    case FinEntite::Coupe:
      return false;
    case FinEntite::Faux:
      return Refuse(Erreur::Dxf, lecteur_.LigneFausse(), lecteur_.TexteFaux());
    case FinEntite::Nombre:
      break;
  }
  const std::string detail = std::string(e_.nom) + " " + std::to_string(g.code) + ": " + std::string(g.texte);
  return Refuse(Erreur::Dxf, g.ligne, detail);
}

// The entity whose group 0 is in g; on return the next one's is. False at the end of the run.
bool Dessinateur::UneEntite(const Cadre& cadre, Groupe& g) {
  FinEntite fin = LitEntite(lecteur_, g, e_);
  if (e_.genre == Genre::Polyligne) {
    if (fin == FinEntite::Donnees) fin = FinEntite::Coupe;  // its vertices are missing
    if (fin == FinEntite::Suite) fin = LitSommets(lecteur_, g, e_);
  }
  if (!Termine(fin, g)) return false;
  const bool dernier = fin != FinEntite::Suite;
  if (!Cachee(cadre)) {
    Situe(cadre);
    if (!Complete(e_)) {
      Ignore(e_.nom);
    } else if (e_.genre == Genre::Insertion) {
      const LecteurGroupes::Reprise ici = lecteur_.Ici();
      if (!Insertion(cadre)) return false;
      lecteur_.Va(ici);
    } else {
      Trace(cadre);
    }
    if (budget_.Epuise()) return Memoire(e_.ligne);
  }
  return !dernier && !lecture_.Refuse();
}

// Layers and layouts. A block's entities on layer "0" lie on the layer of the insertion.
bool Dessinateur::Cachee(const Cadre& cadre) {
  if (e_.genre == Genre::Rien) return true;
  if (e_.papier) {
    Ignore("PAPER_SPACE");
    return true;
  }
  if (e_.calque == "0" && !cadre.calque.empty()) e_.calque = cadre.calque;
  bool cachee = e_.invisible;
  if (const auto c = sommaire_.calques.find(e_.calque); c != sommaire_.calques.end()) {
    // An insertion on a layer that is off still shows what its block has on other layers.
    cachee = cachee || c->second.gele || (c->second.eteint && e_.genre != Genre::Insertion);
  }
  // Points on this layer are the feet of dimensions and never plotted.
  if (e_.genre == Genre::Point && MemeNom{}(e_.calque, "Defpoints")) cachee = true;
  if (cachee) Ignore("LAYER");
  return cachee;
}

// A layer has the spelling of the table, whatever that of the entity; one that the table lacks has no colour.
void Dessinateur::Situe(const Cadre& cadre) {
  const auto c = sommaire_.calques.find(e_.calque);
  const bool connu = c != sommaire_.calques.end();
  couleur_ = e_.couleur.Propre();
  if (!e_.couleur.vraie && e_.couleur.numero == CouleurDite::DuBloc) couleur_ = cadre.couleur;
  if (!e_.couleur.vraie && e_.couleur.numero == CouleurDite::DuCalque && connu) couleur_ = c->second.couleur;
  calque_ = connu ? std::string_view(c->first) : e_.calque;
}

void Dessinateur::Trace(const Cadre& cadre) {
  const Affine& m = cadre.m;
  switch (e_.genre) {
    case Genre::Ligne:
      return Ligne(m);
    case Genre::Point:
      return Point(m);
    case Genre::Cercle:
    case Genre::Arc:
      return Arc(m * RepereObjet(e_.extrusion));
    case Genre::Ellipse:
      return Ellipse(m);
    case Genre::Spline:
      return CourbeSpline(m);
    case Genre::PolyligneLegere:
    case Genre::Polyligne:
      return Polyligne(m);
    case Genre::Solide:
      return Solide(m * RepereObjet(e_.extrusion));
    case Genre::Face3D:
      return Face(m);
    case Genre::Hachure: {
      const LecteurGroupes::Reprise ici = lecteur_.Ici();
      Hachure(m * RepereObjet(e_.extrusion));
      return lecteur_.Va(ici);
    }
    default:
      return Ignore(e_.nom);
  }
}

// An open path that returns to its start is a contour. In this system's own drawings every path stays as it is.
bool Dessinateur::Pose(Trait&& trait) {
  std::vector<Vec2>& p = trait.points;
  if (!sommaire_.propre && trait.nature != Nature::Percage) {
    if (p.empty() || SansEtendue(p)) {
      Ignore(e_.nom);
      return false;
    }
    if (trait.nature == Nature::Ouvert && p.size() > 3 && p.front() == p.back()) trait.nature = Nature::Ferme;
    if (trait.nature == Nature::Ferme) {
      while (p.size() > 1 && p.back() == p.front()) p.pop_back();
      if (p.size() < 3) trait.nature = Nature::Ouvert;
    }
  }
  if (p.empty() || !budget_.Prend(MemoireTrait)) return false;
  if (p.capacity() > p.size() + p.size() / 4 + 1) p.shrink_to_fit();
  trait.ligne = static_cast<std::uint32_t>(e_.ligne);
  const bool code = calque_.find(CaractereCode) != std::string_view::npos;
  trait.calque = lecture_.calques.Place(pathwerk::Calque::Genre::Nomme,
                                        code ? std::string_view(NomDecode(calque_)) : calque_, couleur_);
  lecture_.traits.push_back(std::move(trait));
  return true;
}

}  // namespace pathwerk::lecture::dxf
