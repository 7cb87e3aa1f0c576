#include "workspace/ui/PageFraisage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "base/Indices.h"
#include "core/Gestes.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Ordre.h"
#include "workspace/Module_PanneauChamps.h"

namespace ovelin {

namespace {

// What a value of the overlap means that is no overlap; nothing for 0 to 99.
QString AvisPoche(int pourCent) {
  if (pourCent < 0) return TexteQt(Textes::PocheNegative);
  if (pourCent == 100) return TexteQt(Textes::PocheEntiere);
  if (pourCent > 100) return TexteQt(Textes::PocheExcessive);
  return {};
}

}  // namespace

PageFraisage::PageFraisage(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("FRAME_Fraisage"));
  QVBoxLayout* colonne = ColonnePage(*this);
  selection_ = Selection();
  colonne->addWidget(selection_);
  colonne->addWidget(Outil());
  colonne->addStretch(1);
  OrdreTab(*this, {"CB_Fraiser", "CB_Poche", "CB_Ilot", "TB_Profondeur", "Option_Decal_1", "Option_Decal_2",
                   "Option_Decal_3", "CB_AutreCote", "TB_RayonFraise", "TB_LargeurEncoche", "TB_MiniEncoche",
                   "TB_HautDeg", "TB_PCPoche", "TB_ProfPasse"});
  Remplit({});
  VideOutil();
}

QGroupBox* PageFraisage::Selection() {
  QGroupBox* cadre = Groupe("FRAME1_SELECTION", "Sélection");
  QGridLayout* grille = GrilleGroupe(*cadre);
  fraiser_ = Coche("CB_Fraiser", "Fraiser", "Les séquences choisies sont fraisées");
  poche_ = Coche("CB_Poche", "Poche", "Tout l'intérieur des séquences choisies est fraisé");
  ilot_ = Coche("CB_Ilot", "Îlot", "Les séquences choisies restent debout : la poche autour d'elles les contourne");
  for (QCheckBox* coche : {fraiser_, poche_, ilot_}) coche->setIcon(IconeProgramme(coche->objectName()));
  auto* profondeur = Champ("TB_Profondeur", "mm", "Profondeur totale, négative : -3 descend de 3 mm");
  profondeur_ = new Saisie(profondeur, [this](const std::string& texte) { Profondeur(texte); });
  grille->addWidget(fraiser_, 0, 0, Qt::AlignLeft);
  grille->addWidget(poche_, 0, 1, Qt::AlignLeft);
  grille->addWidget(ilot_, 1, 1, Qt::AlignLeft);
  grille->addWidget(Etiquette("Lbl_Profondeur", "Profondeur", profondeur), 2, 0);
  grille->addWidget(profondeur, 2, 1);

  cote_ = Etiquette("Lbl_Decal", "Côté de l'outil");
  grille->addWidget(cote_, 3, 0, 1, 2);
  grille->addWidget(Cotes(), 4, 0, 1, 2);
  melange_ = Phrase("Lbl_Melange", "");
  // Its line is kept free: the page must not grow with what is selected.
  melange_->setMinimumHeight(melange_->fontMetrics().lineSpacing());
  QSizePolicy place = melange_->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  melange_->setSizePolicy(place);
  grille->addWidget(melange_, 5, 0, 1, 2);
  grille->setColumnStretch(0, 1);
  grille->setColumnStretch(1, 1);

  // Only what the user does runs a command, never the filling of the panel.
  connect(fraiser_, &QCheckBox::clicked, this, [](bool coche) { FraiserSelection(coche); });
  connect(poche_, &QCheckBox::clicked, this, [](bool coche) { PocheSelection(coche); });
  connect(ilot_, &QCheckBox::clicked, this, [](bool coche) { IlotSelection(coche); });
  return cadre;
}

// A picture with its word, in the row of the sides.
void PageFraisage::Image(QToolButton* bouton) {
  bouton->setIcon(IconeProgramme(bouton->objectName()));
  bouton->setIconSize({20, 20});
  bouton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  bouton->setFocusPolicy(Qt::StrongFocus);
  bouton->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
}

QWidget* PageFraisage::Cotes() {
  auto* cadre = new QWidget;
  auto* ligne = new QHBoxLayout(cadre);
  ligne->setContentsMargins(0, 0, 0, 0);
  ligne->setSpacing(2);
  auto* groupe = new QButtonGroup(cadre);
  static constexpr std::array<const char*, 3> Mots{"Gauche", "Sur trait", "Rebours"};
  for (int cote = CoteDirect; cote <= CoteInverse; ++cote) {
    const std::size_t rang = base::Indice(cote - CoteDirect);
    QToolButton* bouton = BoutonChoix(QStringLiteral("Option_Decal_%1").arg(cote), QString::fromLatin1(Mots[rang]));
    Image(bouton);
    groupe->addButton(bouton, cote);
    ligne->addWidget(bouton, 1);
    decal_[rang] = bouton;
  }
  auto* autre = Nomme(new QToolButton, QStringLiteral("CB_AutreCote"),
                      QStringLiteral("L'outil passe de l'autre côté : le sens du parcours est inversé"));
  autre->setText(QStringLiteral("Autre côté"));
  Image(autre);
  ligne->addWidget(autre, 1);
  connect(autre, &QToolButton::clicked, this, [] { InverseSelectionnees(); });
  BullesCotes();
  // Where the sides differ the first is shown; choosing it then is a choice as well.
  connect(groupe, &QButtonGroup::idClicked, this, [this](int cote) {
    if (cote != decalCommun_) DecaleSelection(static_cast<std::int16_t>(cote));
  });
  return cadre;
}

// The tips of the sides have keys of their own.
void PageFraisage::BullesCotes() {
  decal_[0]->setToolTip(TexteQt(Textes::BulleCoteOutil));
  decal_[1]->setToolTip(TexteQt(Textes::BulleSurTrait));
  decal_[2]->setToolTip(TexteQt(Textes::BulleAutreSens));
  for (QToolButton* bouton : decal_) bouton->setAccessibleName(bouton->toolTip());
}

QGroupBox* PageFraisage::Outil() {
  QGroupBox* cadre = Groupe("FRAME1_OUTIL", "Outil");
  QGridLayout* grille = GrilleGroupe(*cadre);
  outil_.reserve(LignesOutil().size());
  for (const LigneOutil& ligne : LignesOutil()) {
    if (ligne.entre != EntreAngleRampe) AjouteChamp(grille, ligne);
  }
  grille->setColumnStretch(0, 1);
  return cadre;
}

void PageFraisage::AjouteChamp(QGridLayout* grille, const LigneOutil& ligne) {
  ChampNombre* champ = Champ(ligne.champ, ligne.unite, ligne.bulle);
  champ->setFixedWidth(104);
  const std::size_t rang = outil_.size();
  auto* saisie = new Saisie(champ, [this, rang](const std::string& texte) { Entre(outil_[rang], texte); });
  // The height is tested before the entry is looked at: one that got in by mistake is refused at each leaving.
  if (ligne.entre == EntreHautDeg) saisie->memeInchange = [] { return Regl.HautDeg < 0; };
  outil_.push_back({saisie, &ligne});
  const int rangee = grille->rowCount();
  QLabel* etiquette = Etiquette(ligne.etiquette, ligne.texte, champ);
  // The two figures of the notches stand in their section.
  if (ligne.entre == EntreLargeurEncoche) {
    encoche_ = new CoupeEncoche;
    grille->addWidget(encoche_, rangee, 0, 1, 2);
    return encoche_->LogeLargeur(etiquette, champ);
  }
  if (ligne.entre == EntreMiniEncoche) return encoche_->LogeHauteur(etiquette, champ);
  if (ligne.entre == EntreRayonFraise) {
    auto* cote = new QHBoxLayout;
    auto* diametre = new Equivalent("Lbl_Diametre");
    diametre->Suit(*champ, SorteEquivalent::Diametre);
    cote->addWidget(etiquette);
    cote->addWidget(diametre, 1, Qt::AlignRight);
    grille->addLayout(cote, rangee, 0);
  } else {
    grille->addWidget(etiquette, rangee, 0);
  }
  grille->addWidget(champ, rangee, 1);
  if (ligne.entre != EntrePCPoche) return;
  avisPoche_ = Phrase("Lbl_AvisPoche", "");
  avisPoche_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grille->addWidget(avisPoche_, rangee + 1, 0, 1, 2);
}

void PageFraisage::Remplit(const ChampsPanneau& champs) {
  selection_->setEnabled(champs.selectionnees > 0);
  poche_->setChecked(champs.CB_Poche);
  fraiser_->setChecked(champs.CB_Fraiser);
  ilot_->setChecked(champs.CB_Ilot);
  profondeurEntiere_ = champs.TB_Profondeur;
  profondeur_->Montre(TexteProfondeur(profondeurEntiere_));
  decalCommun_ = champs.communes.Decalage;
  decal_[base::Indice(champs.Option_Decal - CoteDirect)]->setChecked(true);
  BullesCotes();
  MontreMelange(champs);
}

// A box or a side shows one state where the selected paths have several: which ones is told below.
void PageFraisage::MontreMelange(const ChampsPanneau& champs) {
  QStringList noms;
  if (champs.communes.Fraiser == Mixte) noms += fraiser_->text();
  if (champs.communes.Poche == Mixte) noms += poche_->text();
  if (champs.ilots == Mixte) noms += ilot_->text();
  if (champs.communes.Decalage == CoteMelange) noms += cote_->text();
  melange_->setVisible(champs.selectionnees > 1 && !noms.isEmpty());
  melange_->setText(TexteQt(Textes::ChampMelange) + QLatin1Char(' ') + noms.join(QStringLiteral(", ")));
}

void PageFraisage::RemplitOutil() {
  for (const ChampOutil& champ : outil_) champ.saisie->Montre(champ.ligne->valeur());
  AvertitPoche(true);
  MontreFigures();
}

// The section of a notch.
void PageFraisage::MontreFigures() { encoche_->Montre(LargeurEncoche, MiniEncoche, -Regl.ProfFraisage); }

void PageFraisage::VideOutil() {
  for (const ChampOutil& champ : outil_) champ.saisie->Montre("");
  AvertitPoche(false);
}

// Another window has the same fields. One that is blank, or that somebody types in, stays.
void PageFraisage::SuitOutil() {
  for (const ChampOutil& champ : outil_) {
    const std::string& montre = champ.saisie->EnVigueur();
    const std::string valeur = champ.ligne->valeur();
    if (montre.empty() || montre == valeur || champ.saisie->Champ()->Texte() != montre) continue;
    champ.saisie->Montre(valeur);
    if (champ.ligne->entre == EntrePCPoche) AvertitPoche(true);
  }
  MontreFigures();
}

bool PageFraisage::EnSaisie() const {
  return std::ranges::any_of(outil_, [](const ChampOutil& champ) {
    const ChampNombre& texte = *champ.saisie->Champ();
    return texte.hasFocus() && texte.Texte() != champ.saisie->EnVigueur();
  });
}

void PageFraisage::FocusLargeurEncoche() {
  ChampNombre* champ = findChild<ChampNombre*>(QStringLiteral("TB_LargeurEncoche"));
  champ->setFocus(Qt::OtherFocusReason);
  champ->selectAll();
}

// A refused value that is in force all the same stays in sight with its reason.
void PageFraisage::Entre(const ChampOutil& champ, const std::string& texte) {
  const IssueOutil issue = EntreOutil(*champ.ligne, texte);
  if (issue.accepte) {
    champ.saisie->MontreApres(texte, champ.ligne->valeur());
  } else {
    champ.saisie->Refuse(issue.raison ? TexteQt(*issue.raison) : QString(), issue.stocke);
  }
  if (champ.ligne->entre == EntrePCPoche) AvertitPoche(true);
  MontreFigures();
  if (champ.ligne->entre == EntreLargeurEncoche && !issue.accepte) FocusLargeurEncoche();
}

// A refused depth changes nothing: the field shows again what is in force, and why.
// One that is confirmed as it stands is the depth behind it, not the rounded one that is shown.
void PageFraisage::Profondeur(const std::string& texte) {
  if (EntreProfondeur(texte == profondeur_->EnVigueur() ? profondeurEntiere_ : texte)) return;
  const auto v = NombreDuTexte(texte);
  profondeur_->Montre(profondeur_->EnVigueur());
  if (!v) {
    profondeur_->Refuse(RaisonNombre());
  } else if (!(*v < 0)) {
    profondeur_->Refuse(TexteQt(Textes::ProfondeurNonNegative));
  }
}

void PageFraisage::AvertitPoche(bool montre) {
  const QString avis = montre ? AvisPoche(PCPoche) : QString();
  avisPoche_->setText(avis);
  avisPoche_->setVisible(!avis.isEmpty());
}

}  // namespace ovelin
