// Frame_Avancement: shown over the picture while a file is written, its bar moving without knowing how far it is.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <string>

namespace ovelin {

class FrameAvancement : public QFrame {
  Q_OBJECT
 public:
  explicit FrameAvancement(QWidget* parent);

  void Montre(const std::string& texte);
  void Cache();
  // Timer_Avancement: the counter steps and wraps to 0 at the maximum of the bar, which shows it.
  void Timer_Avancement_Timer();

 private:
  QLabel* texte_;
  QProgressBar* barre_;
  QTimer* minuterie_;
  int compteur_ = 0;
};

}  // namespace ovelin
