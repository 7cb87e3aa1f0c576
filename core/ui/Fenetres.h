// How windows reach each other: by name, through the program that composes them.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

namespace ovelin {

// Opens the window of that name ("F_BD", "F_Fraisage") over `proprietaire`; a modal one has been closed again on
// return. True: it was closed by its OK. Filled by the program and by tests; empty functions mean that there is no
// other window.
extern std::function<bool(const std::string& nom, QWidget* proprietaire)> OuvreFenetre;
// There is such a window: commands of windows that don't exist are not shown.
extern std::function<bool(const std::string& nom)> FenetreExiste;
// The colour dialog: a colour as in the settings in, the chosen one out, -1 when cancelled.
extern std::function<int(QWidget* proprietaire, int couleur)> ChoisitCouleur;

// What every window does at its load: object name, icon, translation, place above its owner.
void PrepareFenetre(QWidget& fenetre, const char* nom);

}  // namespace ovelin
