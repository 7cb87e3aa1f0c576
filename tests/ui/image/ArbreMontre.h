// A tree of the main window on show, and what it tells its window.
#pragma once

#include <vector>

#include "tests/ui/image/Atelier.h"
#include "workspace/ui/ArbreDocument.h"

namespace essai {

struct ArbreMontre {
  ovelin::ArbreDocument arbre;
  std::vector<ovelin::ResultatClic> clics;
  std::vector<QPoint> menus;

  explicit ArbreMontre(ovelin::SorteArbre sorte = ovelin::SorteArbre::Initial, int hauteur = 500) : arbre(sorte) {
    QObject::connect(&arbre, &ovelin::ArbreDocument::Clic,
                     [this](const ovelin::ResultatClic& r) { clics.push_back(r); });
    QObject::connect(&arbre, &ovelin::ArbreDocument::MenuContexte, [this](const QPoint& p) { menus.push_back(p); });
    Montre(arbre, 300, hauteur);
    arbre.Remplit();
    Evenements();
  }
  [[nodiscard]] QModelIndex Racine() const { return arbre.model()->index(0, 0); }
  [[nodiscard]] QModelIndex Groupe(int g) const { return arbre.model()->index(g, 0, Racine()); }
  [[nodiscard]] QModelIndex Point(int g, int r) const { return arbre.model()->index(r, 0, Groupe(g)); }
  void Clique(const QModelIndex& index, Qt::KeyboardModifiers touches = Qt::NoModifier,
              Qt::MouseButton bouton = Qt::LeftButton) {
    arbre.scrollTo(index);
    QTest::mouseClick(arbre.viewport(), bouton, touches, arbre.visualRect(index).center());
    Evenements();
  }
  [[nodiscard]] bool Gras(const QModelIndex& index) const {
    return arbre.model()->data(index, Qt::FontRole).value<QFont>().bold();
  }
  [[nodiscard]] QColor Couleur(const QModelIndex& index) const {
    return arbre.model()->data(index, Qt::ForegroundRole).value<QColor>();
  }
};

}  // namespace essai
