#include "app/ovelin/Ecran.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "core/Textes.h"
#include "core/Traduction.h"

namespace ovelin {

namespace {

std::string Variable(const char* nom) { return qgetenv(nom).toStdString(); }

// "xcb:option" needs an X server, "wayland-egl" a compositor; the others draw without either.
bool PlateformePossible(std::string_view nom, const Affichage& a) {
  nom = nom.substr(0, nom.find(':'));
  if (nom == "xcb") return !a.x11.empty();
  if (nom.starts_with("wayland")) return !a.wayland.empty();
  return !nom.empty();
}

QtMessageHandler Avant = nullptr;
std::vector<std::string> Avis;  // held back: a fatal end tells them once

void Recoit(QtMsgType genre, const QMessageLogContext& /*contexte*/, const QString& texte) {
  if (genre == QtFatalMsg) {
    const std::string raison = Avis.empty() ? texte.toStdString() : Avis.back();
    std::fprintf(stderr, "%s\n", TexteSansEcran(raison).c_str());
    std::fflush(nullptr);
    std::_Exit(SansEcran);
  }
  if (genre == QtWarningMsg || genre == QtCriticalMsg) Avis.push_back(texte.toStdString());
}

}  // namespace

Affichage LitAffichage(const std::string& plateforme) {
  return {plateforme.empty() ? Variable("QT_QPA_PLATFORM") : plateforme, Variable("DISPLAY"),
          Variable("WAYLAND_DISPLAY")};
}

bool EcranPossible(const Affichage& a) {
  if (a.plateforme.empty()) return !a.x11.empty() || !a.wayland.empty();
  std::string_view reste = a.plateforme;
  while (true) {
    const std::size_t fin = reste.find(';');
    if (PlateformePossible(reste.substr(0, fin), a)) return true;
    if (fin == std::string_view::npos) return false;
    reste.remove_prefix(fin + 1);
  }
}

GardeEcran::GardeEcran() {
  Avis.clear();
  Avant = qInstallMessageHandler(Recoit);
}

GardeEcran::~GardeEcran() {
  qInstallMessageHandler(Avant);
  Avant = nullptr;
  for (const std::string& avis : Avis) std::fprintf(stderr, "%s\n", avis.c_str());
}

std::string TexteSansEcran(const std::string& raison) {
  std::string texte = Traduire(Textes::SansEcran);
  if (!raison.empty()) texte += "\n" + raison;
  return texte;
}

}  // namespace ovelin
