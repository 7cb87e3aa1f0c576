// The status bar of the main window: file, status text, position, progress, the board in use.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <array>
#include <string>

#include "core/Services.h"
#include "core/ui/FiltreStop.h"

namespace ovelin {

class BarreEtat : public QStatusBar {
  Q_OBJECT
 public:
  explicit BarreEtat(QWidget* parent = nullptr);

  // Panels by their number from 1: 1 file or path in focus; 2 counts and the name of a long pass; 5 what a command
  // is doing.
  void Panneau(PanneauEtat panneau, const std::string& texte);
  void Positions(const std::array<std::string, 3>& textes);
  void Carte(const QString& texte, const QString& bulle);
  // What stands on the work bench, beside the panels; cut where the window has no room for it, whole in its tip.
  void Parle(const std::string& texte);
  // What the reading of a drawing left out; "" for nothing. A press opens the details, which can be copied. Panel 5
  // gives up its room: it holds the same in the words of the file.
  void Ecarte(const std::string& phrase, const std::string& details);
  // The one stop button: there while something runs.
  void MontreStop(bool visible) { stop_->setVisible(visible); }

  // Progress of a pass with a known number of steps.
  void SB_Avancement(const std::string& texte, long total);
  void SB_AvancementPlus();
  void SB_AvancementFin();
  // Timer_Decalage: the next of the four pictures.
  void Timer_Decalage_Timer();

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  QLabel* Etiquette(const char* nom, int largeur);
  static void Ecrit(QLabel& panneau, const QString& texte);
  void NommeUneFois();
  void Coupe();
  void CoupeEcarte();
  void Etaie();

  std::array<QLabel*, 3> textes_{};  // panels 1, 2, 5
  std::array<QLabel*, 3> positions_{};
  QLabel* parole_;
  QString parlee_;
  QToolButton* ecartes_;
  QString ecartee_, details_;
  QLabel* picture_;
  QLabel* carte_;
  QProgressBar* avancement_;
  BoutonStop* stop_;
  FiltreStop filtre_;
  QTimer* minuterie_;
  int image_ = 0;
  long fait_ = 0;
};

}  // namespace ovelin
