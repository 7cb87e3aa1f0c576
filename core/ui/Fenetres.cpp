#include "core/ui/Fenetres.h"

#include <QApplication>
#include <QPointer>
#include <algorithm>
#include <map>

#include "core/ui/LanguesPresentes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

// Windows of which there is one, by name: a modal one while it is open, a free one from its first opening on. They
// belong to their owners.
using Tenues = std::map<std::string, QPointer<QDialog>>;

IssueFenetre VientDevant(QDialog& fenetre) {
  fenetre.setWindowState(fenetre.windowState() & ~Qt::WindowMinimized);
  fenetre.show();
  fenetre.raise();
  fenetre.activateWindow();
  return IssueFenetre::Ouverte;
}

IssueFenetre OuvreModale(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
  const std::unique_ptr<QDialog> fenetre = FaitFenetre(ligne, proprietaire);
  if (ligne.exemplaires == Exemplaires::Un) tenues[ligne.nom] = fenetre.get();
  return fenetre->exec() == QDialog::Accepted ? IssueFenetre::Acceptee : IssueFenetre::Annulee;
}

IssueFenetre OuvreLibre(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
  QDialog* fenetre = FaitFenetre(ligne, proprietaire).release();
  if (ligne.exemplaires == Exemplaires::Un) {
    tenues[ligne.nom] = fenetre;
  } else {
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
  }
  return VientDevant(*fenetre);
}

IssueFenetre Ouvre(const LigneFenetre& ligne, QWidget* proprietaire, Tenues& tenues) {
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
  OuvreFenetre = [table, tenues = std::make_shared<Tenues>()](const std::string& nom, QWidget* proprietaire) {
    const LigneFenetre* ligne = ChercheFenetre(table, nom);
    return ligne == nullptr ? IssueFenetre::Absente : Ouvre(*ligne, proprietaire, *tenues);
  };
}

void TraduitFenetresOuvertes() {
  TraduitBoiteAOutils();
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    if (fenetre->isVisible() && fenetre->objectName().startsWith(QLatin1String("F_"))) TraduireFenetre(*fenetre);
  }
}

void PrepareFenetre(QWidget& fenetre, const char* nom) {
  fenetre.setObjectName(QString::fromLatin1(nom));
  fenetre.setWindowIcon(IconeProgramme(QStringLiteral("OVELIN-2")));
  TraduitBoiteAOutils();
  TraduireFenetre(fenetre);
}

}  // namespace ovelin
