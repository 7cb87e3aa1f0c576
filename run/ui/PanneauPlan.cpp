#include "run/ui/PanneauPlan.h"

#include <cmath>

#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"
#include "run/NoyauPlan.h"

namespace ovelin {

namespace {

constexpr double SansMouvement = 1e10;  // what the speeds are without a move in the plane

QString Mesure(double v, const char* motif, const char* unite) {
  return QString::fromStdString(Formate(v, motif)) + QLatin1Char(' ') + QLatin1String(unite);
}

QString Vitesse(double v) { return v < SansMouvement ? Mesure(v, "0.00", "mm/s") : QStringLiteral("-"); }

QString Etendue(double debut, double fin) {
  return QString::fromStdString(Formate(debut, "0.0")) + QStringLiteral(" / ") + Mesure(fin, "0.0", "mm");
}

QString Entier(long n) { return QString::fromStdString(TexteNombre(n)); }

}  // namespace

PanneauPlan::PanneauPlan(QWidget* parent) : QGroupBox(QStringLiteral("Parcours"), parent) {
  setObjectName(QStringLiteral("Frame_Plan"));
  auto* grille = new QGridLayout(this);
  grille->setContentsMargins(8, 6, 8, 8);
  grille->setHorizontalSpacing(8);
  grille->setVerticalSpacing(4);
  sequences_ = Figure(*grille, 0, 0, "Sequences", "Séquences :", "Séquences à fraiser");
  passes_ = Figure(*grille, 0, 1, "Passes", "Passes :", "Passes de la séquence la plus profonde");
  fond_ = Figure(*grille, 1, 0, "Fond", "Profondeur :", "Point le plus bas de l'outil");
  rayon_ = Figure(*grille, 1, 1, "Rayon", "Rayon de l'outil :", "Rayon de la fraise du dessin");
  etendueX_ = Figure(*grille, 2, 0, "EtendueX", "Étendue X :", "Où l'outil coupe en X : début et fin");
  etendueY_ = Figure(*grille, 2, 1, "EtendueY", "Étendue Y :", "Où l'outil coupe en Y : début et fin");
  sansRampe_ =
      Figure(*grille, 3, 0, "VSansRampe", "Sans rampe :", "Vitesse la plus haute qui ne demande pas de rampe");
  maxi_ =
      Figure(*grille, 3, 1, "VMax", "Vitesse maxi :", "Vitesse la plus haute que les axes suivent sur ce parcours");
  lignes_ = Figure(*grille, 4, 0, "Lignes", "Déplacements :", "Déplacements du plan");
  avis_ = new QVBoxLayout;
  avis_->setSpacing(4);
  grille->addLayout(avis_, 5, 0, 1, 5);
  AjouteRangee();
  for (const int colonne : {1, 4}) grille->setColumnStretch(colonne, 1);
  grille->setColumnMinimumWidth(2, 12);  // between the two pairs
}

// A title "Lbl_<nom>" and its value "Val_<nom>".
QLabel* PanneauPlan::Figure(QGridLayout& grille, int ligne, int colonne, const char* nom, const char* titre,
                            const char* bulle) {
  auto* etiquette = Nomme(new QLabel(titre, this), QStringLiteral("Lbl_") + nom, bulle);
  QLabel* valeur = Valeur(QStringLiteral("Val_") + nom, {}, this);
  valeur->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grille.addWidget(etiquette, ligne, 3 * colonne);
  grille.addWidget(valeur, ligne, 3 * colonne + 1);
  return valeur;
}

// "Lbl_Avis" and "Btn_Remede", then "Lbl_Avis_1" ...
void PanneauPlan::AjouteRangee() {
  const QString suite = rangees_.empty() ? QString() : QStringLiteral("_%1").arg(rangees_.size());
  Rangee r;
  r.texte = Phrase(QStringLiteral("Lbl_Avis") + suite, "", this);
  r.texte->setProperty("valeur", true);
  r.texte->setTextFormat(Qt::PlainText);
  QFont gras = r.texte->font();
  gras.setBold(true);
  r.texte->setFont(gras);
  r.bouton = Nomme(new QPushButton(this), QStringLiteral("Btn_Remede") + suite);
  r.bouton->setProperty("texteLibre", true);
  r.bouton->setAutoDefault(false);
  r.bouton->setToolTip(TexteQt(Textes::RemedeBulle));
  r.bouton->setAccessibleName(r.bouton->toolTip());
  r.texte->hide();
  r.bouton->hide();
  auto* rangee = new QHBoxLayout;
  rangee->setSpacing(8);
  rangee->addWidget(r.texte, 1);
  rangee->addWidget(r.bouton, 0, Qt::AlignTop);
  avis_->addLayout(rangee);
  const std::size_t i = rangees_.size();
  rangees_.push_back(r);
  connect(r.bouton, &QPushButton::clicked, this, [this, i] {
    const Remede remede = rangees_[i].remede;  // the plan that follows fills the rows anew
    Q_EMIT Mende(remede);
  });
}

std::vector<PanneauPlan::Avis> PanneauPlan::TousAvis(const ResumePlan& resume) {
  if (resume.vide) return {{TexteQt(Textes::SansTrajet), {}}};
  if (resume.refus) {
    Remede remede;
    if (resume.refus->cle == Textes::HautDegNul) {
      remede = {SorteRemede::Degagement, TexteNombre(double{Reglages{}.HautDeg})};
    }
    return {{QString::fromStdString(resume.refus->Texte()), remede}};
  }
  const auto manquent = static_cast<long>(resume.sansTrajet.size());
  if (resume.sequences + manquent == 0) return {{TexteQt(Textes::AucuneAFraiser), {}}};
  std::vector<Avis> avis;
  if (resume.horsCourse) avis.push_back({TexteQt(Textes::ParcoursHorsCourse), {SorteRemede::Coin, ""}});
  if (Depasse(Vitesse_Mat_H, resume.VMax)) {
    constexpr double Pas = 10;  // tenths: never above what the axes follow
    avis.push_back({TexteQt(Textes::VitesseMatiereHaute),
                    {SorteRemede::Vitesse, Formate(std::floor(resume.VMax * Pas) / Pas, "0.0")}});
  }
  if (manquent > 0) {
    avis.push_back({TexteQt(Textes::SequencesEtroites) + QLatin1Char(' ') +
                        QString::fromStdString(TexteSansTrajet(resume.sansTrajet)),
                    {}});
  }
  for (const AvisPlan& a : resume.avis) avis.push_back({QString::fromStdString(a.texte), a.remede});
  return avis;
}

void PanneauPlan::MontreAvis(const std::vector<Avis>& avis) {
  while (rangees_.size() < avis.size()) AjouteRangee();
  for (std::size_t i = 0; i < rangees_.size(); ++i) {
    Rangee& r = rangees_[i];
    const Avis montre = i < avis.size() ? avis[i] : Avis{};
    r.remede = montre.remede;
    r.texte->setText(montre.texte);
    r.texte->setVisible(!montre.texte.isEmpty());
    r.bouton->setText(QString::fromStdString(TexteRemede(montre.remede)));
    r.bouton->setToolTip(TexteQt(Textes::RemedeBulle));
    r.bouton->setAccessibleName(montre.texte.isEmpty() ? r.bouton->toolTip() : r.bouton->text());
    r.bouton->setVisible(!r.bouton->text().isEmpty());
  }
}

void PanneauPlan::Permet(bool permis) {
  for (const Rangee& r : rangees_) r.bouton->setEnabled(permis);
}

void PanneauPlan::Montre(const ResumePlan& resume) {
  const FiguresPlan& f = resume.figures;
  const bool plan = !resume.vide && !resume.refus;
  const QString rien = QStringLiteral("-");
  QString sequences = Entier(resume.sequences);
  if (const auto manquent = static_cast<long>(resume.sansTrajet.size()); manquent > 0) {
    sequences += QStringLiteral(" / ") + Entier(resume.sequences + manquent);
  }
  sequences_->setText(plan ? sequences : rien);
  passes_->setText(plan ? Entier(static_cast<long>(resume.passes)) : rien);
  lignes_->setText(plan ? Entier(f.lignes) : rien);
  fond_->setText(plan ? Mesure(f.fond, "0.0##", "mm") : rien);
  rayon_->setText(Mesure(RayonFraise, "0.0##", "mm"));
  sansRampe_->setText(plan ? Vitesse(resume.VSansRampe) : rien);
  maxi_->setText(plan ? Vitesse(resume.VMax) : rien);
  etendueX_->setText(f.coupe ? Etendue(f.xmin, f.xmax) : rien);
  etendueY_->setText(f.coupe ? Etendue(f.ymin, f.ymax) : rien);
  MontreAvis(TousAvis(resume));
}

}  // namespace ovelin
