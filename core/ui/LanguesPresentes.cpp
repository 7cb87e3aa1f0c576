#include "core/ui/LanguesPresentes.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <algorithm>
#include <set>
#include <string_view>

#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "core/Types.h"

namespace ovelin {

namespace {

bool Lettre(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// "OVELINfr.trad" gives "fr"; anything else nothing.
std::string CodeDe(const std::string& fichier) {
  const std::string_view debut = NomProgramme;
  const std::string_view fin = ".trad";
  if (fichier.size() != debut.size() + 2 + fin.size()) return "";
  if (!fichier.starts_with(debut) || !fichier.ends_with(fin)) return "";
  std::string code = fichier.substr(debut.size(), 2);
  return Lettre(code[0]) && Lettre(code[1]) ? code : "";
}

}  // namespace

std::vector<LanguePresente> LanguesPresentes() {
  std::set<std::string> codes;
  std::vector<std::string> dossiers{DossierProgramme};
  dossiers.insert(dossiers.end(), DossiersProduit.begin(), DossiersProduit.end());
  for (const std::string& dossier : dossiers) {
    for (const std::string& fichier : ListeFichiers(dossier, "TRAD")) {
      if (const std::string code = CodeDe(fichier); !code.empty()) codes.insert(code);
    }
  }
  std::vector<LanguePresente> presentes;
  for (const LangueConnue& connue : Langues()) {
    if (codes.erase(connue.code) > 0) presentes.push_back({connue.code, connue.nom});
  }
  for (const std::string& code : codes) presentes.push_back({code, code});
  return presentes;
}

void TraduitBoiteAOutils() {
  static QTranslator textes;
  static std::string langue;
  if (QCoreApplication::instance() == nullptr || langue == Regl.Langue) return;
  langue = Regl.Langue;
  QCoreApplication::removeTranslator(&textes);
  const QString nom = QStringLiteral("qtbase_") + QString::fromStdString(Regl.Langue);
  if (textes.load(nom, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&textes);
}

}  // namespace ovelin
