// Colours and icons that follow the system's light or dark theme.
#pragma once

#include <QColor>
#include <QIcon>
#include <QWidget>
#include <cstdint>

#include "core/Couleurs.h"

namespace ovelin {

// Colours of the settings are red + 256 x green + 65536 x blue.
QColor EnCouleur(std::int32_t couleur);
std::int32_t DeCouleur(const QColor& couleur);

// Dark when the palette's window is darker than its text.
Theme ThemeDe(const QWidget& w);
// The colour, or the same hue lighter or darker, so that it can be told from `fond`: by default as a graphic, with
// a contrast of 3 to 1.
QColor CouleurLisible(const QColor& couleur, const QColor& fond, double contraste = ContrasteGraphique);
// The same for what is written in that colour.
inline QColor TexteLisible(const QColor& couleur, const QColor& fond) {
  return CouleurLisible(couleur, fond, ContrasteTexte);
}
// The faintest grey that can be read as text on that ground (WCAG 2, criterion 1.4.3).
QColor GrisLisible(const QColor& fond);
// "Paper" of the picture and of previews: white in a light theme, a dark grey in a dark one.
QColor Papier(const QWidget& w);

// An icon of the program by its name ("mnu_Ouvrir"), drawn in the palette's text colour with one accent; sharp at
// every size and scale, greyed when disabled. It follows another palette by itself. An unknown name gives a null
// icon.
QIcon IconeProgramme(const QString& nom);

}  // namespace ovelin
