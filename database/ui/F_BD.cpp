#include "database/ui/F_BD.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/TraduitFenetre.h"
#include "database/ui/SaisieBD.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_BD";
constexpr int NomMontre = 40;  // characters of a name in a box
constexpr std::array<CleTexte, GrilleBD::Colonnes> Titres{
    Textes::TitreMateriau,   Textes::TitreRayon,          Textes::TitreOutil,
    Textes::TitreProfondeur, Textes::TitrePasse,          Textes::TitreVitesseH,
    Textes::TitreVitesseV,   Textes::TitreLargeurEncoche, Textes::TitreMiniEncoche};

// A heading on lines of about this width, in pixels; no word is cut.
QString EnLignes(const QString& texte, const QFontMetrics& mesure, int largeur) {
  QString lignes;
  QString ligne;
  for (const QString& mot : texte.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    const QString longue = ligne.isEmpty() ? mot : ligne + QLatin1Char(' ') + mot;
    if (!ligne.isEmpty() && mesure.horizontalAdvance(longue) > largeur) {
      lignes += ligne + QLatin1Char('\n');
      ligne = mot;
    } else {
      ligne = longue;
    }
  }
  return lignes + ligne;
}

// Why a value of that column (from 1) is refused.
QString Raison(int colonne) {
  switch (colonne) {
    case 1:
      return TexteQt(Textes::FicheTropLongue);
    case 2:
      return TexteQt(Textes::FichePositive);
    case 4:
    case 5:
      return TexteQt(Textes::FicheNegative);
    default:
      return TexteQt(Textes::FicheAuDessusDeZero);
  }
}

}  // namespace

F_BD::F_BD(QWidget* parent) : QDialog(parent) {
  setModal(true);
  Construit();
  PrepareFenetre(*this, Section);
  grille_ = GrilleBD(LitFiches());
  EnTetes();
  Remplit();
  MSFlexGrid1_->setCurrentCell(0, 0);
  MSFlexGrid1_->setFocus();
  const int colonnes = MSFlexGrid1_->horizontalHeader()->length() + MSFlexGrid1_->verticalHeader()->width();
  resize(std::clamp(colonnes + 40, 820, 1000), 380);
}

void F_BD::Construit() {
  setWindowTitle(QStringLiteral("Matériaux"));
  ConstruitGrille();
  ConstruitMenu();
  const BoutonsDialogue boutons =
      PoseBoutons(*this, "Vérifier et garder toutes les fiches", "Fermer sans rien changer");
  // Enter belongs to the grid.
  boutons.ok->setDefault(false);
  boutons.ok->setAutoDefault(false);
  connect(boutons.ok, &QPushButton::clicked, this, &F_BD::Valide);
  // Cancel says what it does; Escape and the cross may be one press too many.
  disconnect(boutons.annuler, nullptr, this, nullptr);
  connect(boutons.annuler, &QPushButton::clicked, this, [this] { QDialog::reject(); });
  boutons.rangee->insertWidget(0, Etiquette("Label1", "Clic droit sur une ligne : insérer ou supprimer"), 1);
  Lbl_Equivalent_ = new Equivalent("Lbl_Equivalent", this);
  boutons.rangee->insertWidget(1, Lbl_Equivalent_);
  connect(MSFlexGrid1_, &QTableWidget::currentCellChanged, this, [this] { MontreEquivalent(); });
  connect(txtSaisie_, &QLineEdit::textChanged, this, [this] { MontreEquivalent(); });
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addWidget(MSFlexGrid1_, 1);
  boite->addLayout(boutons.rangee);
  OrdreTab({MSFlexGrid1_, boutons.ok, boutons.annuler});
}

void F_BD::ConstruitGrille() {
  MSFlexGrid1_ = Nomme(new QTableWidget(0, base::Compte(GrilleBD::Colonnes), this), "MSFlexGrid1",
                       "Une ligne par matériau et par outil ; la dernière sert à en ajouter");
  MSFlexGrid1_->setProperty("valeur", true);  // its headings are out of the texts already
  MSFlexGrid1_->setAccessibleName(TexteQt(Textes::NomGrilleFiches));
  MSFlexGrid1_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1_->setSelectionMode(QAbstractItemView::SingleSelection);
  MSFlexGrid1_->setAlternatingRowColors(true);
  MSFlexGrid1_->setTabKeyNavigation(false);
  MSFlexGrid1_->setItemDelegate(new CellulesBD(MSFlexGrid1_));
  MSFlexGrid1_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  MSFlexGrid1_->setCornerButtonEnabled(false);
  MSFlexGrid1_->setMinimumSize(440, 190);
  QHeaderView* haut = MSFlexGrid1_->horizontalHeader();
  haut->setHighlightSections(false);
  haut->setSectionsClickable(false);
  haut->setDefaultAlignment(Qt::AlignCenter);
  QHeaderView* cote = MSFlexGrid1_->verticalHeader();
  cote->setSectionResizeMode(QHeaderView::Fixed);
  cote->setSectionsClickable(false);
  cote->setDefaultSectionSize(fontMetrics().height() + 8);
  MSFlexGrid1_->installEventFilter(this);
  MSFlexGrid1_->viewport()->installEventFilter(this);
  txtSaisie_ = new SaisieBD(MSFlexGrid1_->viewport());
  txtSaisie_->setToolTip(QString::fromUtf8("Entrée garde le texte, Échap l'abandonne"));
  txtSaisie_->installEventFilter(this);
  connect(MSFlexGrid1_, &QTableWidget::cellClicked, this,
          [this](int ligne, int colonne) { OuvreSaisie(ligne, colonne, Choix::Tout); });
  connect(haut, &QHeaderView::sectionResized, this, [this] { PlaceSaisie(); });
  for (const QScrollBar* barre : {MSFlexGrid1_->horizontalScrollBar(), MSFlexGrid1_->verticalScrollBar()}) {
    connect(barre, &QScrollBar::valueChanged, this, [this] { PlaceSaisie(); });
  }
}

void F_BD::ConstruitMenu() {
  mnu_DB_ = new QMenu(this);
  mnu_DB_->setObjectName(QStringLiteral("mnu_DB"));
  const auto action = [this](const char* nom, const char* texte, const QKeySequence& touches) {
    auto* a = new QAction(QString::fromUtf8(texte), this);
    a->setObjectName(QString::fromLatin1(nom));
    a->setShortcut(touches);
    a->setShortcutContext(Qt::WidgetShortcut);
    a->setShortcutVisibleInContextMenu(true);
    mnu_DB_->addAction(a);
    MSFlexGrid1_->addAction(a);
    return a;
  };
  mnu_DB_Insert_ = action("mnu_DB_Insert", "Insérer une ligne", QKeySequence(Qt::Key_Insert));
  mnu_DB_Delete_ = action("mnu_DB_Delete", "Supprimer la ligne", QKeySequence(Qt::CTRL | Qt::Key_Delete));
  connect(mnu_DB_Insert_, &QAction::triggered, this, &F_BD::Insere);
  connect(mnu_DB_Delete_, &QAction::triggered, this, &F_BD::Supprime);
}

// Headings, broken so that a column needs no more width than its numbers and its longest word.
void F_BD::EnTetes() {
  const QFontMetrics mesure = MSFlexGrid1_->horizontalHeader()->fontMetrics();
  const int nombre = mesure.horizontalAdvance(QStringLiteral("-0000,000"));
  int lignes = 1;
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) {
    titres_[c] = TexteQt(Titres[c]);
    auto* titre = new QTableWidgetItem(EnLignes(titres_[c], mesure, nombre));
    titre->setToolTip(titres_[c]);
    MSFlexGrid1_->setHorizontalHeaderItem(base::Compte(c), titre);
    lignes = std::max(lignes, static_cast<int>(titre->text().count(QLatin1Char('\n'))) + 1);
  }
  MSFlexGrid1_->horizontalHeader()->setFixedHeight(lignes * mesure.height() + 8);
  MSFlexGrid1_->verticalHeader()->setFixedWidth(mesure.horizontalAdvance(QStringLiteral("   ")) + 8);
}

void F_BD::Remplit() {
  const int lignes = base::Compte(grille_.Lignes());
  MSFlexGrid1_->setRowCount(lignes);
  for (int ligne = 0; ligne < lignes; ++ligne) MontreLigne(ligne);
  Elargit();
}

void F_BD::MontreLigne(int ligne) {
  if (MSFlexGrid1_->verticalHeaderItem(ligne) == nullptr) {
    MSFlexGrid1_->setVerticalHeaderItem(ligne, new QTableWidgetItem(QStringLiteral("   ")));
  }
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) {
    const int colonne = base::Compte(c);
    QTableWidgetItem* cellule = MSFlexGrid1_->item(ligne, colonne);
    if (cellule == nullptr) {
      cellule = new QTableWidgetItem;
      cellule->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
      cellule->setTextAlignment((GrilleBD::Numerique(c) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
      MSFlexGrid1_->setItem(ligne, colonne, cellule);
    }
    cellule->setText(QString::fromStdString(grille_.Cellule(base::Indice(ligne), c)));
  }
}

// Each column as wide as what it holds; what is left over goes to the two names.
void F_BD::Elargit() {
  std::array<int, GrilleBD::Colonnes> largeurs{};
  int reste = MSFlexGrid1_->viewport()->width();
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) {
    const int colonne = base::Compte(c);
    const int tete = MSFlexGrid1_->horizontalHeader()->sectionSizeHint(colonne);
    const int contenu = std::max(tete, CellulesBD::Largeur(*MSFlexGrid1_, colonne)) + 4;
    largeurs[c] = std::max(GrilleBD::Numerique(c) ? 64 : 90, contenu);
    reste -= largeurs[c];
  }
  if (reste > 0) {
    largeurs[0] += reste * 2 / 3;
    largeurs[2] += reste - reste * 2 / 3;
  }
  for (std::size_t c = 0; c < GrilleBD::Colonnes; ++c) {
    MSFlexGrid1_->setColumnWidth(base::Compte(c), largeurs[c]);
  }
}

void F_BD::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() != QEvent::FontChange || MSFlexGrid1_ == nullptr || MSFlexGrid1_->rowCount() == 0) return;
  EnTetes();
  Elargit();
}

void F_BD::Valide() {
  RangeSaisie();
  if (Refuse() || !Ecrit()) return;
  accept();
}

void F_BD::reject() {
  RangeSaisie();
  if (!modifiee_) return QDialog::reject();
  BoiteMessage boite;
  boite.section = Textes::FichesModifiees.Section();
  boite.cle = Textes::FichesModifiees.Cle();
  boite.texte = Traduire(Textes::FichesModifiees);
  boite.titre = windowTitle().toStdString();
  boite.icone = Icone::Question;
  boite.boutons = Boutons::OuiNonAnnuler;
  const Reponse reponse = Svc.Montre(boite);
  if (reponse == Reponse::Oui) return Valide();
  if (reponse == Reponse::Non) QDialog::reject();
}

bool F_BD::Refuse() {
  OteFaute();
  const std::vector<FicheMateriau> fiches = grille_.Fiches();
  const auto [ligne, colonne] = VerifieFiches(fiches);
  if (ligne == 0) return false;
  const QString raison = Raison(colonne);
  MontreFaute(ligne - 1, colonne - 1, raison);
  QString nom = QString::fromStdString(fiches[base::Indice(ligne) - 1].champs[0]);
  if (nom.size() > NomMontre) nom = nom.left(NomMontre) + QStringLiteral("...");
  BoiteMessage boite = BoiteDe(Textes::FicheIncorrecte, Icone::Exclamation);
  boite.texte += " " + titres_[base::Indice(colonne) - 1].toStdString() + "\n" +
                 QStringLiteral("%1 : %2").arg(ligne).arg(nom).toStdString() + "\n" + raison.toStdString();
  Svc.Montre(boite);
  MSFlexGrid1_->setFocus();
  return true;
}

void F_BD::MontreFaute(int ligne, int colonne, const QString& raison) {
  ligneFaute_ = ligne;
  colonneFaute_ = colonne;
  MSFlexGrid1_->setCurrentCell(ligne, colonne);
  QTableWidgetItem* cellule = MSFlexGrid1_->item(ligne, colonne);
  cellule->setData(CellulesBD::RoleFaute, true);
  cellule->setToolTip(raison);
  cellule->setData(Qt::AccessibleDescriptionRole, raison);
  MSFlexGrid1_->scrollToItem(cellule);
}

void F_BD::OteFaute() {
  if (ligneFaute_ < 0) return;
  if (QTableWidgetItem* cellule = MSFlexGrid1_->item(ligneFaute_, colonneFaute_)) {
    cellule->setData(CellulesBD::RoleFaute, {});
    cellule->setToolTip({});
    cellule->setData(Qt::AccessibleDescriptionRole, {});
  }
  ligneFaute_ = colonneFaute_ = -1;
}

bool F_BD::Ecrit() {
  Magasin.DerniereErreur.clear();
  EcritFiches(grille_.Fiches());
  const std::string raison = std::exchange(Magasin.DerniereErreur, "");  // told here, and by nobody else again
  if (raison.empty()) return true;
  MessageFichier(Textes::FichesNonEcrites, "\n" + CheminIni() + " : " + raison, Icone::Critique, CheminIni());
  return false;
}

}  // namespace ovelin
