#include "core/ui/Fenetres.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <algorithm>
#include <map>
#include <optional>

#include "core/Services.h"
#include "core/ui/LanguesPresentes.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

// Windows of which there is one, by name: a modal one while it is open, a free one from its first opening on. They
// belong to their owners.
using Tenues = std::map<std::string, QPointer<QDialog>>;

// How a window was left, and what was chosen in it.
struct Laissee {
  IssueFenetre issue = IssueFenetre::Absente;
  int choix = 0;
};

Laissee VientDevant(QDialog& fenetre) {
  fenetre.setWindowState(fenetre.windowState() & ~Qt::WindowMinimized);
  fenetre.show();
  fenetre.raise();
  fenetre.activateWindow();
  return {IssueFenetre::Ouverte, 0};
}

Laissee OuvreModale(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
  const std::unique_ptr<QDialog> fenetre = FaitFenetre(ligne, proprietaire);
  if (ligne.exemplaires == Exemplaires::Un) tenues[ligne.nom] = fenetre.get();
  if (fenetre->exec() != QDialog::Accepted) return {IssueFenetre::Annulee, 0};
  return {IssueFenetre::Acceptee, ligne.choix == nullptr ? 0 : ligne.choix(*fenetre)};
}

Laissee OuvreLibre(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
  QDialog* fenetre = FaitFenetre(ligne, proprietaire).release();
  if (ligne.exemplaires == Exemplaires::Un) {
    tenues[ligne.nom] = fenetre;
  } else {
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
  }
  return VientDevant(*fenetre);
}

Laissee Ouvre(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
  if (const auto tenue = tenues.find(ligne.nom); tenue != tenues.end() && tenue->second != nullptr) {
    QDialog& fenetre = *tenue->second;
    if (!fenetre.isVisible()) {
      TraduireFenetre(fenetre);
      if (ligne.charge != nullptr) ligne.charge(fenetre);
    }
    return VientDevant(fenetre);
  }
  return ligne.tenue == Tenue::Modale ? OuvreModale(ligne, proprietaire, tenues)
                                      : OuvreLibre(ligne, proprietaire, tenues);
}

}  // namespace

std::function<IssueFenetre(const std::string&, QWidget*)> OuvreFenetre;
std::function<bool(const std::string&)> FenetreExiste;
std::string FichierAMontrer;
std::function<int(QWidget*, int)> ChoisitCouleur;

std::unique_ptr<QDialog> FaitFenetre(const LigneFenetre& ligne, QWidget* proprietaire) {
  std::unique_ptr<QDialog> fenetre = ligne.fait(proprietaire);
  if (ligne.charge != nullptr) ligne.charge(*fenetre);
  return fenetre;
}

const LigneFenetre* ChercheFenetre(std::span<const LigneFenetre> table, const std::string& nom) {
  const auto ligne =
      std::find_if(table.begin(), table.end(), [&nom](const LigneFenetre& l) { return nom == l.nom; });
  return ligne == table.end() ? nullptr : &*ligne;
}

void InstalleTable(std::span<const LigneFenetre> table) {
  FenetreExiste = [table](const std::string& nom) { return ChercheFenetre(table, nom) != nullptr; };
  const auto ouvre = [table, tenues = std::make_shared<Tenues>()](const std::string& nom, QWidget* proprietaire) {
    const LigneFenetre* ligne = ChercheFenetre(table, nom);
    return ligne == nullptr ? Laissee{} : Ouvre(*ligne, proprietaire, *tenues);
  };
  OuvreFenetre = [ouvre](const std::string& nom, QWidget* proprietaire) { return ouvre(nom, proprietaire).issue; };
  Svc.OuvreFenetre = [ouvre](const std::string& nom) -> std::optional<int> {
    const Laissee laissee = ouvre(nom, Proprietaire());
    if (laissee.issue != IssueFenetre::Acceptee) return std::nullopt;
    return laissee.choix;
  };
}

void TraduitFenetresOuvertes() {
  TraduitBoiteAOutils();
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    if (fenetre->isVisible() && fenetre->objectName().startsWith(QLatin1String("F_"))) TraduireFenetre(*fenetre);
  }
}

void PlaceSurEcran(QWidget& fenetre, QPoint coin) {
  const QScreen* ecran = QGuiApplication::screenAt(coin);
  if (ecran == nullptr) return;
  const QRect libre = ecran->availableGeometry();
  const QSize taille = fenetre.sizeHint();
  fenetre.move(std::max(libre.left(), std::min(coin.x(), libre.right() - taille.width())),
               std::max(libre.top(), std::min(coin.y(), libre.bottom() - taille.height())));
}

void PrepareFenetre(QWidget& fenetre, const char* nom) {
  fenetre.setObjectName(QString::fromLatin1(nom));
  fenetre.setWindowIcon(IconeProgramme(QStringLiteral("OVELIN-2")));
  TraduitBoiteAOutils();
  TraduireFenetre(fenetre);
}

}  // namespace ovelin
