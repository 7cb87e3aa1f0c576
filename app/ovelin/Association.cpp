#include "app/ovelin/Association.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string_view>
#include <system_error>
#include <utility>

#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

constexpr const char* TypeMime = "application/x-ovelin";
constexpr const char* NomFichiers = "ovelin";
constexpr int Poids = 60;  // before the 50 of a type that claims the extension without a word about it

// Characters that a file of the desktop writes otherwise.
using Echappes = std::initializer_list<std::pair<char, std::string_view>>;

std::string Echappe(std::string_view texte, const Echappes& echappes) {
  std::string s;
  for (const char c : texte) {
    const auto* const e =
        std::find_if(echappes.begin(), echappes.end(), [c](const auto& p) { return p.first == c; });
    s += e == echappes.end() ? std::string_view(&c, 1) : e->second;
  }
  return s;
}

// A value of an entry is one line.
std::string EchappeBureau(std::string_view texte) {
  return Echappe(texte, {{'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"}});
}

std::string EchappeXml(std::string_view texte) {
  return Echappe(texte, {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}});
}

// True when the file has been written, not when it was the same already or can't be.
bool Ecrit(const std::string& chemin, const std::string& octets) {
  if (LitFichierEntier(chemin) == octets) return false;
  std::error_code erreur;
  std::filesystem::create_directories(DossierDe(chemin), erreur);
  return !erreur && EcritFichierEntier(chemin, octets).empty();
}

void LanceOutil(const std::string& outil, const std::string& dossier) {
  const QString chemin = QStandardPaths::findExecutable(QString::fromStdString(outil));
  if (chemin.isEmpty()) return;
  QProcess processus;
  processus.setProgram(chemin);
  processus.setArguments({QString::fromStdString(dossier)});
  processus.setStandardInputFile(QProcess::nullDevice());
  processus.setStandardOutputFile(QProcess::nullDevice());
  processus.setStandardErrorFile(QProcess::nullDevice());
  processus.startDetached();
}

std::string LitIcone(const std::string& nom) {
  IconeProgramme(QString::fromStdString(nom));  // brings the pictures in
  QFile fichier(QStringLiteral(":/icones/%1.svg").arg(QString::fromStdString(nom)));
  return fichier.open(QIODevice::ReadOnly) ? fichier.readAll().toStdString() : "";
}

}  // namespace

std::string LigneExec(const std::string& programme) {
  std::string cite = "\"";
  for (const char c : programme) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') cite += '\\';
    if (c == '%') cite += '%';
    cite += c;
  }
  return EchappeBureau(cite) + "\" %f";
}

std::string TexteBureau(const Association& a, const std::string& programme) {
  return "[Desktop Entry]\nType=Application\nVersion=1.0\nName=" + EchappeBureau(a.nom) +
         "\nComment=" + EchappeBureau(a.description) +
         // An entry whose program has gone is not shown any more.
         "\nTryExec=" + EchappeBureau(programme) + "\nExec=" + LigneExec(programme) + "\nIcon=" + NomFichiers +
         "\nTerminal=false\nMimeType=" + TypeMime +
         ";\nCategories=Engineering;Graphics;\nStartupWMClass=" + NomFichiers + "\n";
}

std::string TexteMime(const Association& a) {
  const std::string poids = std::to_string(Poids);
  std::string globs;
  for (const std::string& extension : {a.extension, Majuscules(a.extension)}) {
    globs += "    <glob pattern=\"*" + EchappeXml(extension) + "\" weight=\"" + poids + "\"/>\n";
  }
  return std::string(
             "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
             "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
             "  <mime-type type=\"") +
         TypeMime + "\">\n    <comment>" + EchappeXml(a.description) + "</comment>\n    <icon name=\"" +
         NomFichiers + "\"/>\n" + globs + "  </mime-type>\n</mime-info>\n";
}

void InscritAssociation(const Association& a, const LieuAssociation& lieu) {
  if (lieu.donnees.empty()) return;
  if (!lieu.icone.empty()) {
    Ecrit(lieu.donnees + "/icons/hicolor/scalable/apps/" + NomFichiers + ".svg", lieu.icone);
  }
  if (Ecrit(lieu.donnees + "/mime/packages/" + NomFichiers + ".xml", TexteMime(a)) && lieu.lance) {
    lieu.lance("update-mime-database", lieu.donnees + "/mime");
  }
  const std::string bureau = lieu.donnees + "/applications";
  if (Ecrit(bureau + "/" + NomFichiers + ".desktop", TexteBureau(a, lieu.programme)) && lieu.lance) {
    lieu.lance("update-desktop-database", bureau);
  }
}

LieuAssociation LieuDuBureau(const Association& a) {
  LieuAssociation lieu;
  lieu.donnees = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
  lieu.programme = QCoreApplication::applicationFilePath().toStdString();
  lieu.icone = LitIcone(NomSansExtension(a.icone));
  lieu.lance = LanceOutil;
  return lieu;
}

}  // namespace ovelin
