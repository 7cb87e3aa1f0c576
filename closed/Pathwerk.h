// The geometry and file library: the only reader and writer of foreign drawings, and the only place where
// curves are offset, cleaned, smoothed or made from text. It knows nothing of the document.
//
// Points cross this interface as PointTrace records: millimetres, Y upward, 32-bit floats. A change of `Seq`
// from one record to the next starts a new path; a path is closed when its last point equals its first.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pathwerk {

// Two characters of fixed width, kept as two 16-bit code units. Comparison is by text order.
struct Code2 {
  char16_t c[2] = {u' ', u' '};

  constexpr Code2() = default;
  constexpr Code2(char16_t gauche, char16_t droite) : c{gauche, droite} {}
  // From 8-bit text: one character is padded with a blank on its right, more than two are cut.
  constexpr explicit Code2(std::string_view texte) {
    for (std::size_t i = 0; i < 2 && i < texte.size(); ++i) {
      c[i] = static_cast<char16_t>(static_cast<unsigned char>(texte[i]));
    }
  }
  constexpr bool operator==(const Code2&) const = default;
  constexpr auto operator<=>(const Code2&) const = default;  // NOLINT(modernize-use-nullptr): no pointer
  // 32-bit key for look-up tables.
  [[nodiscard]] constexpr std::uint32_t Cle() const {
    return (static_cast<std::uint32_t>(c[0]) << 16) | static_cast<std::uint32_t>(c[1]);
  }
  // Both characters as 8-bit text; a unit above 255 becomes '?'.
  [[nodiscard]] std::string Texte() const {
    std::string t(2, '?');
    for (std::size_t i = 0; i < 2; ++i) {
      if (c[i] < 256) t[i] = static_cast<char>(static_cast<unsigned char>(c[i]));
    }
    return t;
  }
};

inline constexpr Code2 CodePD{u'P', u'D'};     // ordinary point
inline constexpr Code2 CodePC{u'P', u'C'};     // centre of an attachment point
inline constexpr Code2 CodePE{u'P', u'E'};     // inside a notch (offset trace only)
inline constexpr Code2 CodePU{u'P', u'U'};     // second point of the stroke in the margin (drag knife)
inline constexpr Code2 CodeAucun{u'-', u'1'};  // matches no path

// One point of a path. 16 bytes, binding layout.
struct PointTrace {
  float X = 0;         // mm
  float Y = 0;         // mm
  Code2 Cde = CodePD;  // kind of the point
  Code2 Seq;           // code of the path it belongs to
  constexpr bool operator==(const PointTrace&) const = default;
};
static_assert(sizeof(PointTrace) == 16);

// Same place, compared as floats without tolerance.
constexpr bool MemePlace(const PointTrace& a, const PointTrace& b) { return a.X == b.X && a.Y == b.Y; }

// Version of the library, times ten. Callers want 62 or more.
int Version();

// --- Reading -----------------------------------------------------------------------------------------------

// Why a drawing is refused. The number without its sign is the number of the "lib" text.
enum class Erreur : std::int32_t {
  Aucune = 0,
  Ouverture = -110,        // the file can't be opened or read
  FormatInconnu = -111,    // neither the extension nor the content names a format
  TropDeSequences = -112,  // more paths than two characters can name
  Coordonnee = -113,       // a coordinate that is not a finite number within +-1e7 mm
  Memoire = -114,          // the drawing would take more memory than its size allows
  Dxf = -115,              // not DXF: no group structure
  BlocCyclique = -116,     // DXF: a block that inserts itself
  Hpgl = -117,             // not a plot: no HP-GL instruction
  Dat = -118,              // no line with two numbers
  Excellon = -119,         // not a drill file
  EpsEntete = -120,        // not PostScript, or a broken binary header
  GsAbsent = -121,         // Ghostscript is not installed
  GsErreur = -122,         // Ghostscript refused the file
  GsDelai = -123,          // Ghostscript took longer than the limit
  GsVolume = -124,         // the output went past the limit
  Ecriture = -125,         // a file can't be written
  Police = -126,           // unknown font
  PoliceFichier = -127,    // the font file can't be read
  Svg = -128,              // not SVG, or no XML; a compressed one counts as that
  Pdf = -129,              // not PDF, no such page, or poppler refused it
  PopplerAbsent = -130,    // poppler's tools are not installed
};
// As procedures give it in place of a count.
constexpr std::int32_t Numero(Erreur erreur) { return static_cast<std::int32_t>(erreur); }

// A format that drawings come in.
struct FormatConnu {
  std::string_view Nom;                          // as a reading reports it
  std::span<const std::string_view> Extensions;  // upper case; what a dialog offers and what may be dropped
  std::string_view Argument;                     // the one that a program takes as its argument, "" for none
  int Rang;                                      // its place where formats are listed for a reader, from 1
};
// All of them, in the order of the open dialog: those that `LireFichier` reads, and the project ("OVL"), which the
// program reads itself.
std::vector<FormatConnu> Formats();

struct OptionsLecture {
  double ToleranceSoudure = 0.01;  // mm: ends nearer than this are joined
  double Fleche = 0.01;            // mm: greatest distance between a curve and its chords
  int Page = 1;                    // of a PDF, from 1
  double UniteSupposee = 0;        // mm of a unit, where a drawing in SVG doesn't say; 0: 96 to the inch, and told
  unsigned Fils = 1;               // threads that the reading may use; the result is the same for any number
  // Called now and then with the share done, 0 to 1. May be empty.
  std::function<void(double)> Avancement;
};

// What a reader had to suppose, or what in the file speaks against its result. The number is that of the "lib"
// text.
enum class Avis : std::int32_t {
  SansUnites = 131,  // drill file: no unit found, inches taken
  FormatDevine =
      132,        // drill file: format or zeros are not said; the detail is the header line that would say them
  Etendue = 133,  // drill file: its line of extents doesn't hold the result; the detail is that line
  Colonnes =
      134,  // coordinate file: a table of more than three columns, the first two taken; the detail is how many
  SansUniteSvg =
      135,  // SVG: the size has no unit, pixels of 96 to the inch taken; the detail is that size, "24 x 24"
  PoliceRemplacee = 136,  // SVG: a font isn't installed and another one serves; the detail is its name
};

struct AvisLecture {
  Avis Numero = Avis::SansUnites;
  std::string Detail;
  bool operator==(const AvisLecture&) const = default;
};

// What a reading has to tell beside the points.
struct RapportLecture {
  std::string Format;                   // "DXF", "HPGL", "DAT", "DRL", "EPS", "SVG", "PDF"
  std::map<std::string, long> Ignores;  // what was left out, by kind ("TEXT", "DIMENSION", "HATCH" ...)
  std::vector<AvisLecture> Suppose;
  Erreur Numero = Erreur::Aucune;
  long Ligne = 0;        // line of the file, from 1; 0 when there is none
  std::string Detail;    // the offending text or what was met, short, no sentence
  bool Tronque = false;  // the file ends in the middle; what was whole is kept
  // Line of the file where a kind of `Ignores` came first, from 1; without those of which nobody knows a line.
  std::map<std::string, long> PremieresLignes;
};

// Length of the message that comes back beside a reading or a writing.
inline constexpr std::size_t LongueurMessage = 260;

// Where a path comes from in its drawing.
struct Calque {
  enum class Genre : std::uint8_t {
    Nomme,  // a layer
    Plume,  // a pen of a plotter, by its number
    Outil,  // a tool of a drill file, by its number and what is known of its diameter: "3", "3 (0.8 mm)"
  };
  Genre Sorte = Genre::Nomme;
  std::string Nom;                       // bytes of the file, UTF-8 or 8-bit; "" for none
  std::optional<std::uint32_t> Couleur;  // 0xRRGGBB
  bool operator==(const Calque&) const = default;
};

// What a file has become.
struct Importation {
  std::int32_t Nombre = 0;  // of points, or a negative `Erreur`
  std::vector<PointTrace> Points;
  // The layers, and for each path in the order of the points the place of its own in them. The first one says
  // nothing. Both empty where no path says anything.
  std::vector<Calque> Calques;
  std::vector<std::uint16_t> CalquesDesChemins;
  float Xmin = 0, Xmax = 0, Ymin = 0, Ymax = 0;  // bounds of the points, mm; 0 when there are none
  // At most 260 bytes: on success what was left out ("TEXT 3, HATCH 1"), on failure "name:line: detail".
  std::string Message;
  RapportLecture Rapport;
};
// Reads a drawing of any format (by extension, else by content).
Importation ImporteFichier(const std::string& chemin, const OptionsLecture& options = {});

// The same for callers with fixed places. `points` is replaced, the result is `Nombre`; the bounds are untouched
// when there are no points; `message` comes in and goes out as 260 characters padded with blanks.
std::int32_t LireFichier(std::vector<PointTrace>& points, const std::string& chemin, float& Xmin, float& Xmax,
                         float& Ymin, float& Ymax, std::string& message);

// The codes that a reading gives, in order: " A" ... as the document counts them, then the remaining pairs of
// printable characters. Index from 0; an index past the last gives CodeAucun.
Code2 CodeDeRang(std::size_t rang);
std::size_t NbCodes();

// --- Writing -----------------------------------------------------------------------------------------------

// Writes a DXF (R12 polylines) or a DAT file, by the extension of `fichier` (".DXF", else DAT); one entity, or one
// block behind a marker line, for each run of `Seq`. `commentaire` comes in padded to 260 characters and goes into
// the file; on return it holds the text for the user's report: the comment, or "name: reason" after a failure.
// The file appears whole or not at all, the same however many threads compose it. Result 0, or a negative `Erreur`.
std::int32_t EcrireFichier(const std::vector<PointTrace>& points, const std::string& fichier,
                           std::string& commentaire, unsigned fils = 1);

// --- Geometry ----------------------------------------------------------------------------------------------

// Offset of one path. `decal` > 0 lies to the left of the direction of travel, mm. `tolerance` bounds the distance
// between the result and the true offset curve. `recouvrement` 100 asks for the single offset curve, any other
// value (closed paths) for a pocket with that overlap in per cent. Marks "PC" come back at the
// image of their place; where the cutter can't follow, at the place where it passes it over.
// The result replaces `points`; pieces are runs of equal `Seq`. 0: no trace. It leaves early, with no result to be
// used, where the calling thread works under a wish to end (base/Arret.h) that has been told.
std::int32_t DecalSequence(std::vector<PointTrace>& points, float tolerance, float decal,
                           std::int32_t recouvrement);

// The same for a pocket that goes around islands. `ilots`: closed paths, runs of equal `Seq`; what they run around
// stays, and their walls are as exact as the pocket's own. They may touch or cross each other and the outline, and
// lie outside of it. An open path among them is none, and where no pocket is asked for there are none. 0 also where
// they leave no room.
std::int32_t DecalSequenceIlots(std::vector<PointTrace>& points, float tolerance, float decal,
                                std::int32_t recouvrement, std::span<const PointTrace> ilots);

// Which of some paths are islands of a pocket with that outline: the closed ones that overlap it, but for those
// that hold all of it and more, inside of which the pocket lies. Their places in `chemins`, ascending; none for an
// open outline.
std::vector<std::size_t> IlotsDans(std::span<const PointTrace> contour,
                                   std::span<const std::span<const PointTrace>> chemins);

// Clean-up of one path in place: drops what lies nearer to the line of the rest than `tolerance` mm. First point,
// last point and points that are not "PD" stay. Returns the number of points kept at the start of the array.
std::int32_t NettoyageFichier(std::vector<PointTrace>& points, float tolerance);

// Smoothing of one path; never fewer points than before, a closed path stays closed.
void LissageSequence(std::vector<PointTrace>& points);

// --- Text --------------------------------------------------------------------------------------------------

inline constexpr std::int32_t StyleItalique = 1;
inline constexpr std::int32_t StyleGras = 2;
inline constexpr double HauteurTexte = 20.0;  // mm: height of the em square of the outlines

// Outlines of a line of UTF-8 text: closed contours at 20 mm an em, base line at Y = 0, curves flattened to
// 0.01 mm. `espace`: extra distance between letters, in thousandths of an em. `style`: StyleItalique + StyleGras.
// Result: number of points (0 for an empty text), or a negative `Erreur`.
std::int32_t Texte(std::vector<PointTrace>& points, const std::string& texte, const std::string& police,
                   std::int32_t espace, std::int32_t style);
// The same at `hauteur` mm an em, with curves flattened to 0.01 mm at every height; 0 points for a height that is
// none.
std::int32_t TexteHaut(std::vector<PointTrace>& points, const std::string& texte, const std::string& police,
                       std::int32_t espace, std::int32_t style, double hauteur);
// Families that can be used, sorted.
std::vector<std::string> ListePolices();

}  // namespace pathwerk
