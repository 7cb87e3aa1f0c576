// Random work in the main window, repeatable by its seed.
#pragma once

#include <QWidget>
#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/ui/principale/FenetrePrincipale.h"

namespace essai {

class Singe : public essai::Principale {
 protected:
  void SetUp() override;

  int Un(int n) { return static_cast<int>(hasard_() % static_cast<unsigned>(n)); }
  std::string Echantillon();
  template <class T>
  T* UnDe(const QWidget& fenetre) {
    std::vector<T*> bons;
    for (T* w : fenetre.findChildren<T*>()) {
      if (w->isVisible() && w->isEnabled() && !w->objectName().isEmpty()) bons.push_back(w);
    }
    return bons.empty() ? nullptr : bons[static_cast<std::size_t>(Un(static_cast<int>(bons.size())))];
  }
  Qt::KeyboardModifiers Touches();
  QPoint Place(const QWidget& w) { return {Un(std::max(w.width(), 1)), Un(std::max(w.height(), 1))}; }
  std::string Texte();  // of an entry

  template <class T>
  T* UnDe() {
    return UnDe<T>(*fenetre_);
  }

  // One action; what it was, for the message of a failure.
  std::string Agit();
  std::string AgitImage();
  std::string AgitMenu();
  std::string AgitMain();
  void PosePoche();
  std::string AgitPasse();
  std::string AgitOuverture();
  bool RemplitDialogue(const char* nom);
  std::string RouleSurListe();
  std::string Reprend();
  std::string Invariants();  // "" when the document is whole

  std::mt19937 hasard_;
  std::uint32_t graine_ = 0;
  int actions_ = 0;
  int reprises_ = 0;
  bool tue_ = true;     // the program may be killed and started again
  bool force_ = false;  // the open dialog isn't cancelled
};

}  // namespace essai
