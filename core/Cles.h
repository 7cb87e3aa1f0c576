// The key store: section "[OVELIN]" of the settings file with the open project's overrides.
//
// Writes that belong together reach the disk together: hold a `LotCles` over them. Without one each write is a
// batch of its own. Content that has not changed is not written.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/SansCopie.h"
#include "core/FichierIni.h"

namespace ovelin {

std::string LireCle(std::string_view cle, std::string_view defaut);
// The same from the settings file alone, never from a project: which board, the address of updates.
std::string LireCleIni(std::string_view cle, std::string_view defaut);
double LireNombre(std::string_view cle, double defaut);
bool LireBooleen(std::string_view cle, bool defaut);  // anything but "Faux" is true
void EcrireCle(std::string_view cle, std::string_view valeur);
void SupprimerCle(std::string_view cle);

std::string LireCleSection(std::string_view section, std::string_view cle, std::string_view defaut);
double LireNombreSection(std::string_view section, std::string_view cle, double defaut);
void EcrireCleSection(std::string_view section, std::string_view cle, std::string_view valeur);
void SupprimerCleSection(std::string_view section, std::string_view cle);

// Listings and copies go through a buffer of 8192 characters; what does not fit as a whole is left out.
std::vector<std::string> ListerSections(const std::string& fichier);
void CopierSection(std::string_view source, std::string_view cible, const std::string& fichier);
void SupprimerSection(std::string_view section, const std::string& fichier);
void DeplacerSection(std::string_view source, std::string_view cible, const std::string& fichier);

// Where the value of a key comes from, as `LireCle` finds it.
enum class OrigineCle { Defaut, Reglages, Projet, Surcharge };
OrigineCle OrigineDe(std::string_view cle);

// Whether the drawing in force is a project that keys are read from; a snapshot that is being read is one too.
bool ProjetEnVigueur();

// Path of the settings file: DossierProgramme + "/OVELIN.ini".
std::string CheminIni();
// The file and why it can't be read though it is there (rights, a folder of that name, a pipe, a size that no
// settings have); "" when it can. What is read is then the built-in values.
std::string ReglagesRefuses();

// Behaviour of the store for this process.
struct MagasinCles {
  // Values that stand before every file, for this call only, never written. A machine key ("TB_SAV_15",
  // "COMBO_SAV_1" ...) acts in the section of any machine table. Keys without regard to case.
  std::map<std::string, std::string> Surcharge;
  // False: the settings file is left alone by every write of this interface (the command line); the project still
  // gets its line.
  bool EcrireIni = true;
  // Seconds that a write of the settings waits for another process that writes them.
  double AttenteVerrou = 5;
  // The first failure of a write since it was last cleared: system's text, "" when there was none.
  std::string DerniereErreur;
};
extern MagasinCles Magasin;

// While one stands, files are read once and written once, at its end (or when the project writer takes over).
class LotCles : base::SansCopie {
 public:
  LotCles();
  ~LotCles();
};

// While one stands, keys come from the settings file alone and go there alone: the open project overrides nothing
// and receives nothing. A `LotCles` over the same keys is made behind it.
class SansProjet : base::SansCopie {
 public:
  SansProjet();
  ~SansProjet();

 private:
  std::string projet_;
};

// The way back of keys that a change writes before it is sure that it stays: while one stands, what these keys of
// section "[OVELIN]" held in the files is kept from before their first write. Several may stand at once.
class RetourCles : base::SansCopie {
 public:
  explicit RetourCles(std::vector<std::string> cles);
  ~RetourCles();

  // Those that have been written since are as they were, in the settings file and in the project each: a key that
  // stood in neither stands in neither.
  void Remet();

 private:
  friend void EcrireCle(std::string_view cle, std::string_view valeur);
  static void Note(std::string_view cle, const std::string& projet);  // "" for none
  struct Avant {
    std::string cle, projet;
    FichierIni::CleTelle dansIni;
    std::optional<std::string> dansProjet;  // bytes as they stand there
  };
  std::vector<std::string> cles_;
  std::vector<Avant> avant_;
};

// Forget what is held of the files (another program, or a test, has changed them).
void OublieCles();

}  // namespace ovelin
