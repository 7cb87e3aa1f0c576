#include "workspace/ui/CommandesPrincipales.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPointer>
#include <QToolButton>
#include <array>

#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"

namespace ovelin {

namespace {

struct Commande {
  const char* nom;
  const char* texte;  // French; the fallback of the translation
  const char* raccourci;
  bool bascule = false;
};

struct MenuCommandes {
  const char* nom;
  const char* texte;
  std::vector<Commande> commandes;  // without a name: a separator
};

const Commande Trait{"", "", "", false};

const std::vector<MenuCommandes>& Menus() {
  static const std::vector<MenuCommandes> Table{
      {"mnu_Fichier",
       "&Fichier",
       {{"mnu_Ouvrir", "&Ouvrir...", "Ctrl+O"},
        {"mnu_Save", "&Enregistrer le projet", "Ctrl+S"},
        {"mnu_SaveAs", "Enregistrer le projet &sous...", "Ctrl+Shift+S"},
        {"mnu_Exporter", "E&xporter...", "Ctrl+E"},
        Trait,
        {"mnu_Fraisage", "&Fraisage...", "F5"},
        Trait,
        {"mnu_Quitter", "&Quitter", "Ctrl+Q"}}},
      {"mnu_Edition",
       "&Edition",
       {{"mnu_Undo", "&Annuler", "Ctrl+Z"},
        Trait,
        {"mnu_Tout", "&Tout sélectionner", "Ctrl+A"},
        {"mnu_InverseSelection", "&Inverser la sélection", "Ctrl+I"},
        {"mnu_Supprimer", "&Supprimer la sélection", "Del"}}},
      {"mnu_Affichage",
       "&Affichage",
       {{"mnu_ZoomPlus", "Zoom &avant", "Ctrl++"},
        {"mnu_ZoomMoins", "Zoom a&rrière", "Ctrl+-"},
        {"mnu_Zoom1", "&Dessin entier", "Ctrl+0"},
        {"mnu_ZoomSelection", "&Loupe", "Ctrl+R", true},
        Trait,
        {"mnu_NumPoint", "&Points", "F6", true},
        {"mnu_Sequence", "&Numéros des séquences", "F7", true},
        Trait,
        {"mnu_Panneau", "Panneau &latéral", "F9", true}}},
      {"mnu_Outils",
       "&Outils",
       {{"mnu_Lever", "&Points d'attache", "F8", true},
        {"mnu_Optimisation", "&Optimiser les départs", "Ctrl+T"},
        {"mnu_Nettoyage", "&Nettoyer les points...", "Ctrl+L"},
        {"mnu_Vinyl", "Outil &vinyle...", ""},
        {"mnu_Texte", "&Texte...", ""},
        Trait,
        {"mnu_BD", "&Matériaux...", "Ctrl+B"},
        {"mnu_Soudure", "Tolérance de &soudure...", ""}}},
      {"mnu_Options",
       "O&ptions",
       {{"mnu_ParamAppli", "&Réglages...", "Ctrl+,"},
        {"mnu_ZENIK", "Paramètres de la &machine...", ""},
        {"mnu_PilMan", "&Pilotage manuel...", ""},
        Trait,
        {"mnu_Defaut", "Remettre les réglages par &défaut", ""}}},
      {"mnu_Aide", "&?", {{"mnu_Help", "&Aide", "F1"}, {"mnu_APropos", "À &propos...", ""}}},
  };
  return Table;
}

// Groups of the toolbar, in the order of the work: open, choose the material, mill; then the tools.
const std::vector<std::vector<const char*>>& Groupes() {
  static const std::vector<std::vector<const char*>> Table{
      {"mnu_Ouvrir", "mnu_Save", "mnu_SaveAs", "mnu_Exporter"},
      {"CB_BD", "mnu_BD"},
      {"mnu_Fraisage"},
      {"mnu_Undo"},
      {"mnu_Lever", "mnu_Optimisation", "mnu_Vinyl", "mnu_Nettoyage"},
      {"mnu_ZoomMoins", "Combo_Zoom", "mnu_ZoomPlus", "mnu_Zoom1", "mnu_ZoomSelection"},
      {"mnu_NumPoint", "mnu_Sequence"},
      {"mnu_ZENIK"},
  };
  return Table;
}

constexpr std::array MenusDuDessin{"mnu_Save",         "mnu_SaveAs", "mnu_Exporter", "mnu_Fraisage",
                                   "mnu_Optimisation", "mnu_Vinyl",  "mnu_Nettoyage"};
// Buttons of the toolbar; the entries of the menus go with them.
constexpr std::array BoutonsDuDessin{"mnu_NumPoint",         "mnu_Sequence", "mnu_Lever",         "mnu_ZoomMoins",
                                     "mnu_ZoomPlus",         "mnu_Zoom1",    "mnu_ZoomSelection", "mnu_Tout",
                                     "mnu_InverseSelection", "mnu_Supprimer"};

// The combo of the zoom: its arrows and the keys up and down step the scale, its items "+" and "-" too.
class ComboPas : public QComboBox {
 public:
  using QComboBox::QComboBox;
  std::function<void(int sens)> Pas;

 protected:
  void keyPressEvent(QKeyEvent* e) override {
    if (e->key() == Qt::Key_Up || e->key() == Qt::Key_Down) {
      if (Pas) Pas(e->key() == Qt::Key_Up ? 1 : -1);
      return;
    }
    QComboBox::keyPressEvent(e);
  }
  void wheelEvent(QWheelEvent* e) override {
    if (Pas && e->angleDelta().y() != 0) Pas(e->angleDelta().y() > 0 ? 1 : -1);
    e->accept();
  }
};

// The picture of the button that stands out: drawn for its ground, the colour of a selection.
QIcon IconePrincipale(const std::string& nom) {
  const QIcon icone = IconeProgramme(QString::fromStdString(nom));
  QIcon sur;
  for (const int cote : {24, 48, 72}) {
    sur.addPixmap(icone.pixmap(QSize(cote, cote), 1.0, QIcon::Selected), QIcon::Normal);
    sur.addPixmap(icone.pixmap(QSize(cote, cote), 1.0, QIcon::Disabled), QIcon::Disabled);
  }
  return sur;
}

// A menu's text without its key and its dots.
QString TexteBouton(const QAction& commande) { return commande.text().remove('&').remove(QStringLiteral("...")); }

}  // namespace

CommandesPrincipales::CommandesPrincipales(QMenuBar* menus, QToolBar* barre, const Executions& executions,
                                           QObject* parent)
    : QObject(parent), executions_(executions), barre_(barre) {
  RemplitMenus(menus);
  RemplitBarre(barre);
  DessinOuvert(false);
  Active("mnu_Undo", false);
}

QAction* CommandesPrincipales::Cree(const char* nom, const char* texte, const char* raccourci, bool bascule) {
  const auto execution = executions_.find(nom);
  if (execution == executions_.end()) return nullptr;
  auto* action = new QAction(IconeProgramme(QString::fromLatin1(nom)), QString::fromUtf8(texte), this);
  action->setObjectName(QString::fromLatin1(nom));
  action->setCheckable(bascule);
  if (*raccourci != '\0') action->setShortcut(QKeySequence(QString::fromLatin1(raccourci)));
  connect(action, &QAction::triggered, this, [this, &commande = execution->second] { Execute(commande); });
  actions_[nom] = action;
  return action;
}

// A command can come another way than by mouse and keys, which are held back over a pass: it waits for its end.
void CommandesPrincipales::Execute(const std::function<void()>& commande) {
  if (!PasseEnCours()) return commande();
  Apres([moi = QPointer<CommandesPrincipales>(this), commande] {
    if (moi != nullptr) commande();
  });
}

void CommandesPrincipales::RemplitMenus(QMenuBar* menus) {
  for (const MenuCommandes& contenu : Menus()) {
    auto* menu = new QMenu(QString::fromUtf8(contenu.texte), menus);
    menu->setObjectName(QString::fromLatin1(contenu.nom));
    bool trait = false;
    for (const Commande& c : contenu.commandes) {
      if (*c.nom == '\0') {
        trait = !menu->isEmpty();
        continue;
      }
      QAction* action = Cree(c.nom, c.texte, c.raccourci, c.bascule);
      if (action == nullptr) continue;
      if (trait) menu->addSeparator();
      trait = false;
      if (std::string_view(c.nom) == "mnu_Quitter") {
        // Entry 0 of the recent files: a line that shows when there is one.
        separateurRecents_ = menu->addSeparator();
        separateurRecents_->setObjectName(QStringLiteral("mnu_MRU_0"));
        separateurRecents_->setVisible(false);
        action->setMenuRole(QAction::QuitRole);
      }
      menu->addAction(action);
    }
    if (menu->isEmpty()) {
      delete menu;
      continue;
    }
    if (std::string_view(contenu.nom) == "mnu_Fichier") menuFichier_ = menu;
    menus->addMenu(menu);
  }
}

void CommandesPrincipales::RemplitBarre(QToolBar* barre) {
  bool trait = false;
  for (const auto& groupe : Groupes()) {
    bool vide = true;
    for (const char* nom : groupe) {
      const std::string_view n = nom;
      if (n != "CB_BD" && n != "Combo_Zoom" && !actions_.contains(nom)) continue;
      if (trait && vide) barre->addSeparator();
      vide = false;
      if (n == "CB_BD") {
        AjouteMateriau();
      } else if (n == "Combo_Zoom") {
        AjouteZoom();
      } else {
        AjouteBouton(nom);
      }
    }
    trait = trait || !vide;
  }
}

// A button is an action of its own that follows the menu's: its tool tip is translated by itself.
void CommandesPrincipales::AjouteBouton(const char* nom) {
  QAction* commande = actions_.at(nom);
  QAction* bouton = barre_->addAction(commande->icon(), TexteBouton(*commande));
  bouton->setObjectName(barre_->objectName() + "_" + QString::fromLatin1(nom));
  bouton->setCheckable(commande->isCheckable());
  connect(bouton, &QAction::triggered, commande, &QAction::trigger);
  const auto suit = [commande, bouton] {
    bouton->setEnabled(commande->isEnabled());
    bouton->setChecked(commande->isChecked());
    bouton->setIconText(TexteBouton(*commande));
  };
  connect(commande, &QAction::changed, bouton, suit);
  // The click has toggled the button itself; the command has the last word.
  connect(bouton, &QAction::toggled, bouton, suit, Qt::QueuedConnection);
  boutons_[nom] = bouton;
  auto* outil = qobject_cast<QToolButton*>(barre_->widgetForAction(bouton));
  outil->setObjectName(QString::fromLatin1(nom));
  if (std::string_view(nom) == "mnu_Fraisage") {
    outil->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    outil->setProperty("principal", true);
    bouton->setIcon(IconePrincipale(nom));
  }
}

void CommandesPrincipales::AjouteMateriau() {
  auto* cadre = new QWidget(barre_);
  auto* rangee = new QHBoxLayout(cadre);
  rangee->setContentsMargins(2, 0, 2, 0);
  auto* etiquette = new QLabel(QStringLiteral("Matériau"), cadre);
  etiquette->setObjectName(QStringLiteral("Lbl_BD"));
  cbBD_ = new QComboBox(cadre);
  cbBD_->setObjectName(QStringLiteral("CB_BD"));
  cbBD_->setToolTip(QStringLiteral("Matériau : rayon, profondeurs, vitesses et encoches en une fois"));
  cbBD_->setMinimumContentsLength(16);
  cbBD_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  etiquette->setBuddy(cbBD_);
  rangee->addWidget(etiquette);
  rangee->addWidget(cbBD_);
  barre_->addWidget(cadre);
}

void CommandesPrincipales::AjouteZoom() {
  auto* combo = new ComboPas(barre_);
  combo->setObjectName(QStringLiteral("Combo_Zoom"));
  combo->setToolTip(QStringLiteral("Zoom par pas : flèches ou molette"));
  for (const char* texte : {"+", " ", "-"}) combo->addItem(QString::fromLatin1(texte));
  combo->setCurrentIndex(1);
  combo->Pas = [this](int sens) {
    if (PasZoom) PasZoom(sens);
  };
  connect(combo, &QComboBox::activated, this, [this](int) {
    const std::string choix = comboZoom_->currentText().toStdString();
    comboZoom_->setCurrentIndex(1);
    if (ChoixZoom) ChoixZoom(choix);
  });
  comboZoom_ = combo;
  barre_->addWidget(combo);
}

QAction* CommandesPrincipales::Action(const char* nom) const {
  const auto trouvee = actions_.find(nom);
  return trouvee == actions_.end() ? nullptr : trouvee->second;
}

void CommandesPrincipales::Active(const char* nom, bool active) {
  if (QAction* action = Action(nom)) action->setEnabled(active);
}

void CommandesPrincipales::Coche(const char* nom, bool coche) {
  if (QAction* action = Action(nom)) action->setChecked(coche);
}

void CommandesPrincipales::DessinOuvert(bool ouvert) {
  for (const char* nom : MenusDuDessin) Active(nom, ouvert);
  for (const char* nom : BoutonsDuDessin) Active(nom, ouvert);
  comboZoom_->setEnabled(ouvert);
  MontreUndo(ouvert);
}

void CommandesPrincipales::MontreUndo(bool visible) {
  const auto bouton = boutons_.find("mnu_Undo");
  if (bouton != boutons_.end()) bouton->second->setVisible(visible);
}

void CommandesPrincipales::RemplitRecents(const std::vector<std::string>& textes) {
  if (menuFichier_ == nullptr || separateurRecents_ == nullptr) return;
  // Later: the one that was chosen is still at work when the list changes.
  for (QAction* entree : recents_) {
    menuFichier_->removeAction(entree);
    entree->setParent(nullptr);
    entree->deleteLater();
  }
  recents_.clear();
  for (std::size_t i = 1; i <= textes.size(); ++i) {
    auto* entree = new QAction((i < 10 ? QStringLiteral("&") : QString()) +
                                   QString::fromStdString(textes[i - 1]).replace('&', QStringLiteral("&&")),
                               this);
    entree->setObjectName(QStringLiteral("mnu_MRU_%1").arg(i));
    connect(entree, &QAction::triggered, this, [this, i] {
      Execute([this, i] {
        if (Recent) Recent(i);
      });
    });
    menuFichier_->insertAction(separateurRecents_, entree);
    recents_.push_back(entree);
  }
  separateurRecents_->setVisible(!textes.empty());
}

void CommandesPrincipales::Redessine() {
  for (const auto& [nom, action] : actions_) {
    const QIcon icone = IconeProgramme(QString::fromStdString(nom));
    action->setIcon(icone);
    const auto bouton = boutons_.find(nom);
    if (bouton == boutons_.end()) continue;
    bouton->second->setIcon(nom == "mnu_Fraisage" ? IconePrincipale(nom) : icone);
  }
}

}  // namespace ovelin
