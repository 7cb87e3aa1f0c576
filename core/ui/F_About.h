// About the program: name, version, the system's information program, the page of help.
#pragma once

#include <QDialog>
#include <QStringList>

namespace ovelin {

class F_About : public QDialog {
  Q_OBJECT
 public:
  explicit F_About(QWidget* parent = nullptr);

 private:
  void Construit();
  void StartSysInfo();
  void OuvrePage();
};

// The program of this desktop that tells of the system, with its arguments; empty where there is none.
QStringList GetKeyValue();

}  // namespace ovelin
