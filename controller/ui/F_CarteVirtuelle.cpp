#include "controller/ui/F_CarteVirtuelle.h"

#include <QTabWidget>
#include <QTimer>

#include "controller/ChoixCarte.h"
#include "controller/ClsCdeZENIK.h"
#include "controller/ParcoursCarte.h"
#include "controller/ui/ImageParcours.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_CarteVirtuelle";
constexpr int PeriodeSuivi = 50;  // ms between two looks at the board: twenty a second
constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

std::array<double, 3> MmParPas() { return {CdeZENIK->MmParPasX(), CdeZENIK->MmParPasY(), CdeZENIK->MmParPasZ()}; }

}  // namespace

F_CarteVirtuelle::F_CarteVirtuelle(QWidget* parent) : QDialog(parent) {
  setModal(false);
  setWindowTitle(QStringLiteral("Carte virtuelle"));
  suivi_ = new QTimer(this);
  suivi_->setInterval(PeriodeSuivi);
  connect(suivi_, &QTimer::timeout, this, &F_CarteVirtuelle::Suit);
  QVBoxLayout* boite = ColonneFenetre(*this);
  Lbl_Absente_ = Phrase("Lbl_Absente", "", this);
  Lbl_Absente_->setProperty("valeur", true);
  boite->addWidget(Lbl_Absente_);
  SSTab1_ = Nomme(new QTabWidget(this), "SSTab1");
  SSTab1_->addTab(PagePlace(), QStringLiteral("Place"));
  SSTab1_->addTab(PageCommandes(), QStringLiteral("Commandes"));
  SSTab1_->addTab(PageModele(), Francais("Modèle et fautes"));
  boite->addWidget(SSTab1_, 1);
  auto* fermer = Bouton("Btn_Fermer", "Fermer", Francais("Fermer la fenêtre"), this);
  fermer->setAutoDefault(false);
  connect(fermer, &QPushButton::clicked, this, &F_CarteVirtuelle::close);
  boite->addLayout(RangeeBoutons({fermer}));
  PrepareFenetre(*this, Section);
}

QWidget* F_CarteVirtuelle::PagePlace() {
  auto* page = Nomme(new QWidget, "Page_Place");
  QVBoxLayout* colonne = ColonnePage(*page);
  QGroupBox* groupe = Groupe("Frame_Place", "Place, en pas", page);
  QGridLayout* grille = GrilleGroupe(*groupe);
  const std::array<std::pair<const char*, const char*>, 3> rangees{{{"Lbl_Compteurs", "Compteurs du programme :"},
                                                                    {"Lbl_Lieu", "Place vraie :"},
                                                                    {"Lbl_Perdus", "Pas perdus :"}}};
  for (int rangee = 0; rangee < 3; ++rangee) {
    const auto r = static_cast<std::size_t>(rangee);
    grille->addWidget(Etiquette(QLatin1String(rangees[r].first), Francais(rangees[r].second)), rangee + 1, 0);
    for (int axe = 0; axe < 3; ++axe) {
      const auto a = static_cast<std::size_t>(axe);
      QLabel* valeur = Valeur(QLatin1String(rangees[r].first) + QLatin1Char('_') + QString::number(axe));
      valeur->setAlignment(Qt::AlignRight);
      places_[r][a] = valeur;
      grille->addWidget(valeur, rangee + 1, axe + 1);
    }
  }
  for (int axe = 0; axe < 3; ++axe) {
    QLabel* tete = EnTete(QStringLiteral("Tete_%1").arg(axe), QLatin1String(Axes[static_cast<std::size_t>(axe)]));
    tete->setProperty("valeur", true);
    tete->setAlignment(Qt::AlignRight);
    grille->addWidget(tete, 0, axe + 1);
    grille->setColumnStretch(axe + 1, 1);
  }
  Lbl_Etat_ = Valeur("Lbl_Etat");
  Lbl_Etat_->setAlignment(Qt::AlignRight);
  grille->addWidget(Etiquette("Lbl_TitreEtat", Francais("Mouvements reçus, commencés :")), 4, 0);
  grille->addWidget(Lbl_Etat_, 4, 1, 1, 3);
  colonne->addWidget(groupe);

  QGroupBox* parcours = Groupe("Frame_Parcours", "Parcours", page);
  QGridLayout* dessous = GrilleGroupe(*parcours);
  PB_Parcours_ = new ImageParcours("PB_Parcours", Francais("Parcours de la machine, vu de dessus"));
  dessous->addWidget(PB_Parcours_, 0, 0, 1, 3);
  auto* exporte = Bouton("Btn_Exporter", "&Exporter...", Francais("Écrire le parcours en svg ou en csv"), page);
  auto* neuf = Bouton("Btn_Neuf", "&Recommencer", Francais("Le parcours recommence à la place présente"), page);
  for (QPushButton* bouton : {exporte, neuf}) bouton->setAutoDefault(false);
  connect(exporte, &QPushButton::clicked, this, &F_CarteVirtuelle::Exporte);
  connect(neuf, &QPushButton::clicked, this, [this] {
    if (LaCarte.virtuelle) LaCarte.virtuelle->Place(LaCarte.virtuelle->Lieu());
    commences_ = -1;
    Suit();
  });
  dessous->addWidget(exporte, 1, 0);
  dessous->addWidget(neuf, 1, 1);
  dessous->setColumnStretch(2, 1);
  dessous->setRowStretch(0, 1);
  colonne->addWidget(parcours, 1);
  return page;
}

void F_CarteVirtuelle::Form_Load() {
  fautes_.clear();
  commences_ = -1;
  if (LaCarte.virtuelle) {
    RelacheTout();
    MontreModele();
  }
  Suit();
  suivi_->start();
}

// What is not the panel's to show is left as it stands: a board that another one has replaced is gone.
void F_CarteVirtuelle::Suit() {
  const auto vue = RegardeCarte();
  Lbl_Absente_->setText(vue ? QString() : TexteQt(Textes::CarteNonVirtuelle));
  Lbl_Absente_->setVisible(!vue);
  SSTab1_->setEnabled(vue.has_value());
  if (!vue) return;
  for (std::size_t axe = 0; axe < 3; ++axe) {
    places_[0][axe]->setText(QString::number(vue->compteurs[axe]));
    places_[1][axe]->setText(QString::number(vue->lieu[axe]));
    places_[2][axe]->setText(QString::number(vue->perdus[axe]));
    QFont police = places_[1][axe]->font();
    police.setBold(vue->lieu[axe] != vue->compteurs[axe]);
    places_[1][axe]->setFont(police);
  }
  Lbl_Etat_->setText(QStringLiteral("%1, %2").arg(vue->acceptes).arg(vue->commences));
  MontreSorties(*vue);
  MontreParcours(*vue);
  fautes_ = FautesAVenir(fautes_, vue->echanges);
  MontreFautes();
}

// A long path is drawn anew only when the machine has gone on.
void F_CarteVirtuelle::MontreParcours(const VueCarte& vue) {
  if (vue.commences == commences_ && vue.lieu == lieu_) return;
  commences_ = vue.commences;
  lieu_ = vue.lieu;
  PB_Parcours_->Montre(LaCarte.virtuelle->Parcours(), MmParPas());
}

void F_CarteVirtuelle::Exporte() {
  if (!LaCarte.virtuelle) return;
  DialogueFichier dialogue;
  dialogue.enregistrer = true;
  dialogue.cle = "Btn_Exporter";
  dialogue.titre = TexteQt(Textes::ExporteParcours).toStdString();
  dialogue.filtre = TexteQt(Textes::FichiersParcours).toStdString();
  dialogue.motif = "*.svg *.csv";
  dialogue.propose = "parcours.svg";
  const std::string chemin = CheminComplet(Svc.ChoisitFichier(dialogue));
  if (chemin.empty()) return;
  if (GenreParcours(chemin) == '\0')
    return MessageFichier(Textes::ExtensionParcours, "", Icone::Exclamation, chemin);
  const std::string raison = EcritParcours(chemin, LaCarte.virtuelle->Parcours(), MmParPas());
  if (!raison.empty()) {
    MessageFichier(Textes::EcritureRefusee, "\n" + chemin + " : " + raison, Icone::Critique, chemin);
  }
}

void F_CarteVirtuelle::done(int resultat) {
  suivi_->stop();
  if (LaCarte.virtuelle) LaCarte.virtuelle->Appuie(0);
  QDialog::done(resultat);
}

}  // namespace ovelin
