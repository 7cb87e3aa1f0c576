// FRAME1_DEPLACEMENT: the selection is moved by fields, arrows and scroll bars.
#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <QScrollBar>
#include <functional>
#include <string>
#include <vector>

#include "workspace/Module_PanneauChamps.h"
#include "workspace/ui/Saisie.h"

namespace ovelin {

class CadreDeplacement : public QGroupBox {
  Q_OBJECT
 public:
  explicit CadreDeplacement(QWidget* parent = nullptr);

  // Displacement since the last reset, mm; where it is another one the scroll bars go to their middle. Nothing
  // while a move of this frame runs: then the frame itself knows what it shows.
  void Montre(const std::string& x, const std::string& y);
  void Remet();  // no displacement, the scroll bars in their middle
  void MontrePoint(const std::string& x, const std::string& y);
  // The selection moves by `pas` mm along X or Y; the field follows.
  void Deplace(Direction direction, double pas);

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  struct Axe {
    Direction direction = Direction::Aucune;
    Saisie* champ = nullptr;
    QScrollBar* barre = nullptr;
    double parPas = 0;  // mm a step of the scroll bar
    int memoire = 0;    // value of the scroll bar that has been moved by
  };
  void Flechette(const char* nom, const char* bulle, Axe& axe, double pas, QGridLayout* grille, int ligne,
                 int colonne);
  Axe CreeAxe(Direction direction, const char* champ, const char* bulle, const char* barre, Qt::Orientation sens);
  ChampEntre Bouge(const std::function<ChampEntre()>& mouvement);
  void Entre(Axe& axe, const std::string& texte);
  bool Ajoute(Axe& axe, double pas);
  void RegleRepetition();
  void Defile(Axe& axe, int valeur);
  void Regle(Axe& axe, int valeur);

  Axe x_, y_;
  std::vector<QToolButton*> fleches_;
  bool enMouvement_ = false;
};

}  // namespace ovelin
