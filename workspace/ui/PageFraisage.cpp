#include "workspace/ui/PageFraisage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>

#include "base/Indices.h"
#include "core/Gestes.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/Module_PanneauChamps.h"

namespace ovelin {

// A field of the tool: its names, its rule, what it shows, and what it tells of a number that is refused.
struct LigneOutil {
  const char* champ;
  const char* etiquette;
  const char* texte;
  const char* unite;  // "" where the label holds it
  const char* bulle;
  bool (*entre)(const std::string&);
  std::string (*valeur)();
  std::optional<CleTexte> raison;
};

namespace {

constexpr LigneOutil LignesOutil[] = {
    {"TB_RayonFraise", "Lbl_RayonFraise", "Rayon de l'outil", "mm",
     "Rayon de la fraise : la moitié de son diamètre", EntreRayonFraise, [] { return TexteNombre(RayonFraise); },
     Textes::ChampNegatif},
    {"TB_LargeurEncoche", "Lbl_LargeurEncoche", "Largeur des encoches", "mm",
     "Largeur du pont de matière laissé à chaque point d'attache", EntreLargeurEncoche,
     [] { return TexteNombre(LargeurEncoche); }, Textes::ChampNul},
    {"TB_MiniEncoche", "Lbl_MiniEncoche", "Hauteur mini des encoches", "mm",
     "Hauteur du pont de matière au-dessus du fond de la coupe", EntreMiniEncoche,
     [] { return TexteNombre(MiniEncoche); }, Textes::ChampNegatif},
    {"TB_HautDeg", "Lbl_HautDeg", "Hauteur dégagement (mm)", "",
     "Hauteur de l'outil au-dessus de la matière pendant les déplacements", EntreHautDeg,
     [] { return TexteNombre(Regl.HautDeg); }, Textes::ChampNegatif},
    {"TB_PCPoche", "Lbl_PCPoche", "% recouvrement poches", "",
     "Part de la passe précédente que l'outil recouvre dans une poche", EntrePCPoche,
     [] { return TexteNombre(long{PCPoche}); }, std::nullopt},
    {"TB_ProfPasse", "Lbl_ProfPasse", "Profondeur de passe maxi", "mm",
     "Profondeur d'une passe, négative : -1 enlève 1 mm à chaque passe", EntreProfPasse,
     [] { return TexteNombre(ProfPasse); }, Textes::ProfondeurNonNegative},
};

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
  OrdreTab(*this,
           {"CB_Fraiser", "CB_Poche", "TB_Profondeur", "Option_Decal_1", "Option_Decal_2", "Option_Decal_3",
            "TB_RayonFraise", "TB_LargeurEncoche", "TB_MiniEncoche", "TB_HautDeg", "TB_PCPoche", "TB_ProfPasse"});
  Remplit({});
  VideOutil();
}

QGroupBox* PageFraisage::Selection() {
  QGroupBox* cadre = Groupe("FRAME1_SELECTION", "Sélection");
  QGridLayout* grille = GrilleGroupe(*cadre);
  fraiser_ = Coche("CB_Fraiser", "Fraiser", "Les séquences choisies sont fraisées");
  poche_ = Coche("CB_Poche", "Poche", "Tout l'intérieur des séquences choisies est fraisé");
  for (QCheckBox* coche : {fraiser_, poche_}) coche->setIcon(IconeProgramme(coche->objectName()));
  auto* profondeur = Champ("TB_Profondeur", "mm", "Profondeur totale, négative : -3 descend de 3 mm");
  profondeur_ = new Saisie(profondeur, [this](const std::string& texte) { Profondeur(texte); });
  grille->addWidget(fraiser_, 0, 0, Qt::AlignLeft);
  grille->addWidget(poche_, 0, 1, Qt::AlignLeft);
  grille->addWidget(Etiquette("Lbl_Profondeur", "Profondeur", profondeur), 1, 0);
  grille->addWidget(profondeur, 1, 1);

  cote_ = Etiquette("Lbl_Decal", "Côté de l'outil");
  grille->addWidget(cote_, 2, 0);
  grille->addWidget(Cotes(), 2, 1);
  melange_ = Phrase("Lbl_Melange", "");
  grille->addWidget(melange_, 3, 0, 1, 2);
  grille->setColumnStretch(0, 1);
  grille->setColumnStretch(1, 1);

  // Only what the user does runs a command, never the filling of the panel.
  connect(fraiser_, &QCheckBox::clicked, this, [](bool coche) { FraiserSelection(coche); });
  connect(poche_, &QCheckBox::clicked, this, [](bool coche) { PocheSelection(coche); });
  return cadre;
}

QWidget* PageFraisage::Cotes() {
  auto* cadre = new QWidget;
  auto* ligne = new QHBoxLayout(cadre);
  ligne->setContentsMargins(0, 0, 0, 0);
  ligne->setSpacing(4);
  auto* groupe = new QButtonGroup(cadre);
  for (int cote = CoteDirect; cote <= CoteInverse; ++cote) {
    auto* bouton = Nomme(new QRadioButton, QStringLiteral("Option_Decal_%1").arg(cote));
    bouton->setIcon(IconeProgramme(bouton->objectName()));
    bouton->setIconSize({20, 20});
    groupe->addButton(bouton, cote);
    ligne->addWidget(bouton, 1, Qt::AlignLeft);
    decal_[base::Indice(cote - CoteDirect)] = bouton;
  }
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
  for (QRadioButton* bouton : decal_) bouton->setAccessibleName(bouton->toolTip());
}

QGroupBox* PageFraisage::Outil() {
  QGroupBox* cadre = Groupe("FRAME1_OUTIL", "Outil");
  QGridLayout* grille = GrilleGroupe(*cadre);
  outil_.reserve(std::size(LignesOutil));
  for (const LigneOutil& ligne : LignesOutil) AjouteChamp(grille, ligne);
  grille->setColumnStretch(0, 1);
  return cadre;
}

void PageFraisage::AjouteChamp(QGridLayout* grille, const LigneOutil& ligne) {
  ChampNombre* champ = Champ(ligne.champ, ligne.unite, ligne.bulle);
  champ->setFixedWidth(104);
  const std::size_t rang = outil_.size();
  auto* saisie = new Saisie(champ, [this, rang](const std::string& texte) { EntreOutil(outil_[rang], texte); });
  // The height is tested before the entry is looked at: one that got in by mistake is refused at each leaving.
  if (ligne.entre == EntreHautDeg) saisie->memeInchange = [] { return Regl.HautDeg < 0; };
  outil_.push_back({saisie, ligne.entre, ligne.valeur, ligne.raison});
  const int rangee = grille->rowCount();
  grille->addWidget(Etiquette(ligne.etiquette, ligne.texte, champ), rangee, 0);
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
  if (champs.communes.Decalage == CoteMelange) noms += cote_->text();
  melange_->setVisible(champs.selectionnees > 1 && !noms.isEmpty());
  melange_->setText(TexteQt(Textes::ChampMelange) + QLatin1Char(' ') + noms.join(QStringLiteral(", ")));
}

void PageFraisage::RemplitOutil() {
  for (const ChampOutil& champ : outil_) champ.saisie->Montre(champ.valeur());
  AvertitPoche(true);
}

void PageFraisage::VideOutil() {
  for (const ChampOutil& champ : outil_) champ.saisie->Montre("");
  AvertitPoche(false);
}

void PageFraisage::FocusLargeurEncoche() {
  ChampNombre* champ = findChild<ChampNombre*>(QStringLiteral("TB_LargeurEncoche"));
  champ->setFocus(Qt::OtherFocusReason);
  champ->selectAll();
}

// A refused value that is in force all the same stays in sight with its reason.
void PageFraisage::EntreOutil(const ChampOutil& champ, const std::string& texte) {
  if (champ.entre == EntreHautDeg && !LaisseHautDeg(texte)) {
    return champ.saisie->Refuse(TexteQt(*champ.raison), NombreDuTexte(texte) == NombreDuTexte(champ.valeur()));
  }
  if (champ.entre(texte)) {
    champ.saisie->Montre(champ.valeur());
  } else if (!EstNumerique(texte)) {
    champ.saisie->Refuse(RaisonNombre());
  } else {
    const auto v = NombreDuTexte(champ.valeur());
    champ.saisie->Refuse(champ.raison ? TexteQt(*champ.raison) : QString(), v == NombreDuTexte(texte));
  }
  if (champ.entre == EntrePCPoche) AvertitPoche(true);
  if (champ.entre == EntreLargeurEncoche && champ.saisie->Champ()->EstRefuse()) FocusLargeurEncoche();
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
