#include "workspace/ui/FrameAvancement.h"

#include "core/ui/Fabrique.h"

namespace ovelin {

namespace {

constexpr int Maximum = 20;
constexpr int Periode = 100;  // ms

}  // namespace

FrameAvancement::FrameAvancement(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame_Avancement"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  setFixedWidth(260);
  auto* colonne = new QVBoxLayout(this);
  texte_ = Phrase("Lbl_Avancement", "", this);
  barre_ = Nomme(new QProgressBar(this), "ProgressBar_Avancement");
  barre_->setRange(0, Maximum);
  barre_->setTextVisible(false);
  colonne->addWidget(texte_);
  colonne->addWidget(barre_);
  minuterie_ = new QTimer(this);
  minuterie_->setObjectName(QStringLiteral("Timer_Avancement"));
  minuterie_->setInterval(Periode);
  connect(minuterie_, &QTimer::timeout, this, &FrameAvancement::Timer_Avancement_Timer);
  setVisible(false);
}

void FrameAvancement::Montre(const std::string& texte) {
  texte_->setText(QString::fromStdString(texte));
  compteur_ = 0;
  barre_->setValue(0);
  adjustSize();
  const QRect place = parentWidget()->rect();
  move((place.width() - width()) / 2, (place.height() - height()) / 2);
  raise();
  setVisible(true);
  minuterie_->start();
}

void FrameAvancement::Cache() {
  minuterie_->stop();
  setVisible(false);
}

void FrameAvancement::Timer_Avancement_Timer() {
  compteur_ = compteur_ >= barre_->maximum() ? 0 : compteur_ + 1;
  barre_->setValue(compteur_);
}

}  // namespace ovelin
