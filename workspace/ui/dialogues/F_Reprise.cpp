#include "workspace/ui/dialogues/F_Reprise.h"

#include <QDateTime>
#include <QListWidget>
#include <QLocale>
#include <utility>

#include "base/Indices.h"
#include "core/Fichiers.h"
#include "core/LectureProjet.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "workspace/Module_Reprise.h"
#include "workspace/ui/dialogues/ApercuDimension.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Reprise";

// The day and the time as they are written where the user is.
QString Ligne(const Reprise& r) {
  const QString nom = QString::fromStdString(NomDe(r.dessin));
  return (nom.isEmpty() ? TexteQt(Textes::DessinSansNom) : nom) + QStringLiteral("   ") +
         QLocale(QString::fromStdString(Regl.Langue))
             .toString(QDateTime::fromSecsSinceEpoch(r.heure), QLocale::ShortFormat);
}

}  // namespace

F_Reprise::F_Reprise(QWidget* parent) : QDialog(parent) {
  setModal(true);
  Construit();
  PrepareFenetre(*this, Section);
  Remplit();
  List_Reprises_->setFocus();
}

void F_Reprise::Construit() {
  setWindowTitle(QStringLiteral("Travail retrouvé"));
  cadre_ = ColonneFenetre(*this);
  cadre_->addWidget(
      Phrase("Label1", "Le programme s'est arrêté sans pouvoir demander. Voici ce qui a été gardé :", this));
  List_Reprises_ = Nomme(new QListWidget(this), "List_Reprises", "Dessin et heure de son dernier état");
  List_Reprises_->setProperty("valeur", true);
  List_Reprises_->setAccessibleName(TexteQt(Textes::NomListeReprises));
  List_Reprises_->setMinimumSize(360, 4 * fontMetrics().height());
  List_Reprises_->setMaximumHeight(8 * fontMetrics().height());
  connect(List_Reprises_, &QListWidget::currentRowChanged, this, &F_Reprise::MontreChoix);
  connect(List_Reprises_, &QListWidget::itemDoubleClicked, this, &F_Reprise::Reprend);
  cadre_->addWidget(List_Reprises_);
  Apercu_ = new ApercuDimension({}, this);
  cadre_->addWidget(Apercu_, 1);
  Btn_Reprendre_ = Bouton("Btn_Reprendre", "&Reprendre", "Ouvrir ce travail tel qu'il était", this);
  Btn_Reprendre_->setDefault(true);
  connect(Btn_Reprendre_, &QPushButton::clicked, this, &F_Reprise::Reprend);
  Btn_Jeter_ = Bouton("Btn_Jeter", "&Jeter", "Effacer ce travail pour toujours", this);
  Btn_Jeter_->setAutoDefault(false);
  connect(Btn_Jeter_, &QPushButton::clicked, this, &F_Reprise::Jette);
  QPushButton* tard =
      Bouton("Btn_PlusTard", "&Plus tard", "Fermer : la question revient au prochain démarrage", this);
  tard->setAutoDefault(false);
  connect(tard, &QPushButton::clicked, this, &QDialog::reject);
  cadre_->addLayout(RangeeBoutons({Btn_Reprendre_, Btn_Jeter_, tard}));
  OrdreTab({List_Reprises_, Btn_Reprendre_, Btn_Jeter_, tard});
}

void F_Reprise::Remplit() {
  reprises_ = ListeReprises();
  List_Reprises_->clear();
  for (const Reprise& r : reprises_) {
    auto* ligne = new QListWidgetItem(Ligne(r), List_Reprises_);
    ligne->setToolTip(QString::fromStdString(r.dessin));
  }
  Btn_Reprendre_->setEnabled(!reprises_.empty());
  Btn_Jeter_->setEnabled(!reprises_.empty());
  List_Reprises_->setCurrentRow(reprises_.empty() ? -1 : 0);
}

void F_Reprise::MontreChoix(int rang) {
  std::vector<PointTrace> points;
  if (rang >= 0) {
    points = LitProjet(reprises_[base::Indice(rang)].fichier).document.TraceInitial;
  }
  auto* neuf = new ApercuDimension(std::move(points), this);
  delete cadre_->replaceWidget(Apercu_, neuf);
  delete std::exchange(Apercu_, neuf);
  Apercu_->Montre(1, 1);
}

void F_Reprise::Reprend() {
  const int rang = List_Reprises_->currentRow();
  if (rang < 0) return;
  RepriseChoisie = reprises_[base::Indice(rang)];
  accept();
}

void F_Reprise::Jette() {
  const int rang = List_Reprises_->currentRow();
  if (rang < 0) return;
  OteReprise(reprises_[base::Indice(rang)]);
  Remplit();
  if (reprises_.empty()) reject();
}

}  // namespace ovelin
