// What the key store holds of its files: the settings files it has read, the settings lines of the project, and the
// writes of a batch that have not reached the disk. Used by Cles.cpp and by the project writer.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/SansCopie.h"
#include "core/Empreinte.h"
#include "core/FichierIni.h"
#include "core/Fichiers.h"

namespace ovelin::magasin {

// The file as it stands, read again only when it has changed on disk. Empty when there is none.
const FichierIni& Ini(const std::string& chemin);
// Why the file can't be read though there is something of that name; "" when it can, or when there is nothing.
ErreurSysteme RaisonIni(const std::string& chemin);
// Changes a file of sections; on disk at the end of the batch, or at once where there is none. The change is made
// once more on the file as it stands then, so that it keeps what it needs by value. A file that can't be read is
// left alone (what would be written back is not what was there).
using Changement = std::function<void(FichierIni&)>;
void ModifieIni(const std::string& chemin, const Changement& change);

// Bytes behind "$$key=" in the project file, writes that wait included.
std::optional<std::string> CleProjet(const std::string& chemin, std::string_view cle8);
// Puts "$$key=value" into a project file (bytes of the file's set). Left out for a read-only file.
void PlaceCleProjet(const std::string& chemin, std::string_view cle8, std::string_view valeur8);
// Takes that line out of it, likewise.
void OteCleProjet(const std::string& chemin, std::string_view cle8);

// The settings lines of a project that somebody has read anyway, so that it isn't read once more for its keys.
// `avant`: its state before that reading.
using Reglages = std::unordered_map<std::string, std::string>;
void PoseProjet(const std::string& chemin, const Empreinte& avant, Reglages&& reglages);

void DebutLot();
void FinLot();
void Oublie();
// The project file has been written by another way than PlaceCleProjet.
void OublieProjet(const std::string& chemin);

// While one stands, lines for the file `chemin` go to `texte`: the project writer composes its file in memory.
// What waited for that file is dropped, since the writer starts it anew.
class Redirection : base::SansCopie {
 public:
  Redirection(std::string chemin, std::string& texte);
  ~Redirection();
};

}  // namespace ovelin::magasin
