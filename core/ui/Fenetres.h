// How windows reach each other: by name, through the program that composes them.
#pragma once

#include <QDialog>
#include <concepts>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace ovelin {

// One of a window at a time: opened again it comes to the front. Or as many as are asked for.
enum class Exemplaires { Un, Plusieurs };
// A modal window holds its owner back until it is closed; a free one stays open beside it.
enum class Tenue { Modale, Libre };

// A window of the program. The table of them stands where the program is composed; program and tests read it.
struct LigneFenetre {
  const char* nom;
  Exemplaires exemplaires;
  Tenue tenue;
  std::unique_ptr<QDialog> (*fait)(QWidget* proprietaire);
  void (*charge)(QDialog& fenetre);                // its Form_Load; nothing where the constructor does all
  int (*choix)(const QDialog& fenetre) = nullptr;  // what the user has chosen in it, for who opens it by its name
};

// The row of class F, whose constructor takes the owner. A `Form_Load()` of it runs before each showing, an
// `int Choix() const` tells what the user has chosen once it is closed by its OK.
template <class F>
constexpr LigneFenetre LigneDe(const char* nom, Exemplaires exemplaires, Tenue tenue) {
  LigneFenetre ligne{nom, exemplaires, tenue, nullptr, nullptr, nullptr};
  ligne.fait = [](QWidget* proprietaire) -> std::unique_ptr<QDialog> { return std::make_unique<F>(proprietaire); };
  if constexpr (requires(F & f) { f.Form_Load(); }) {
    ligne.charge = [](QDialog& fenetre) { static_cast<F&>(fenetre).Form_Load(); };
  }
  if constexpr (requires(const F& f) {
                  { f.Choix() } -> std::same_as<int>;
                }) {
    ligne.choix = [](const QDialog& fenetre) { return static_cast<const F&>(fenetre).Choix(); };
  }
  return ligne;
}

// A new window of that row, loaded and not yet shown.
std::unique_ptr<QDialog> FaitFenetre(const LigneFenetre& ligne, QWidget* proprietaire);
// The row of that name, or null.
const LigneFenetre* ChercheFenetre(std::span<const LigneFenetre> table, const std::string& nom);
// Fills `OuvreFenetre`, `FenetreExiste` and the window service of `Svc` with the windows of a table, which has to
// last.
void InstalleTable(std::span<const LigneFenetre> table);

enum class IssueFenetre {
  Absente,   // there is no such window
  Ouverte,   // it stays open: a free one, or one that was open already and has come to the front
  Annulee,   // a modal one, closed without its OK
  Acceptee,  // closed by its OK
};
// Opens the window of that name ("F_BD", "F_Fraisage") over `proprietaire`; a modal one has been closed again on
// return. Filled by the program and by tests; empty functions mean that there is no other window.
//
// A free window of which there is one is made at its first opening and kept, hidden once it is closed: what it has
// begun, such as a run of the machine, goes on without it. It comes back at its next opening, in the language of
// then.
extern std::function<IssueFenetre(const std::string& nom, QWidget* proprietaire)> OuvreFenetre;
// There is such a window: commands of windows that don't exist are not shown.
extern std::function<bool(const std::string& nom)> FenetreExiste;
// The file that the window opened next shall show; that window takes it at its load. Empty: none.
extern std::string FichierAMontrer;
// The colour dialog: a colour as in the settings in, the chosen one out, -1 when cancelled.
extern std::function<int(QWidget* proprietaire, int couleur)> ChoisitCouleur;

// Every window on show is loaded anew in the language in force; texts that it holds itself are its own affair.
void TraduitFenetresOuvertes();

// The window at a place that has been remembered, as far on its screen as it goes; where no screen holds that place
// any more it stays.
void PlaceSurEcran(QWidget& fenetre, QPoint coin);

// What every window does at its load: object name, icon, translation, place above its owner.
void PrepareFenetre(QWidget& fenetre, const char* nom);

}  // namespace ovelin
