// What there is to be seen: each window of the program, in the states that show most of it.
#pragma once

#include <QSize>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace captures {

struct Scene {
  std::string nom;      // of the picture
  std::string fichier;  // sample that is opened, "" for none
  bool ouvreDedans;     // by the window that is shown, not before it
  std::function<std::unique_ptr<QWidget>()> construit;
  std::function<void(QWidget&)> prepare;  // after the first showing
  std::vector<QSize> tailles;             // small to large; an invalid one is the size that the window asks for
};

std::vector<Scene> Scenes();

}  // namespace captures
