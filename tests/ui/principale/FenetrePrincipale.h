// The main window as the program shows it, on a fresh document, with the other windows answered by the test.
#pragma once

#include <QAction>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/ui/Fenetres.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/ui/F_Representation.h"

namespace essai {

class Principale : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // The window, loaded with that command line.
  ovelin::F_Representation& Charge(const std::string& ligneCommande = "");
  // A copy of a sample in the test's folder, its path.
  static std::string Exemple(const std::string& nom);
  void Commande(const char* nom);  // as chosen in the menu
  [[nodiscard]] QAction* Menu(const char* nom) const;
  [[nodiscard]] QAction* Bouton(const char* nom) const;  // of the toolbar
  template <class T>
  T* C(const char* nom) {
    return Controle<T>(*fenetre_, nom);
  }
  // A click in the picture at a place of the drawing, mm.
  void CliqueDessin(float x, float y, Qt::KeyboardModifiers touches = {}, Qt::MouseButton bouton = Qt::LeftButton);
  QPoint PlaceDessin(float x, float y);
  static std::vector<std::string> Selectionnes();  // codes
  // A click on a line of a tree: a path, or a point of it.
  void CliqueLigne(const char* arbre, int groupe, int point = -1, Qt::MouseButton bouton = Qt::LeftButton);

  std::unique_ptr<ovelin::F_Representation> fenetre_;
  std::vector<std::string> ouvertes_;  // windows asked for, in order
  bool manuelle_ = false;  // the window of moves by hand, which comes with every main window, counts among them
  std::map<std::string, std::function<bool()>> reponses_;  // what they do; without one they are cancelled
};

}  // namespace essai
