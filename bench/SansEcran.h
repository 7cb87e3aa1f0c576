// The program of a bench with windows.
#pragma once

#include <QApplication>

namespace banc {

// Its windows are painted into memory, unless the caller of the bench names another platform. `argc` outlives what
// comes back.
inline QApplication SansEcran(int& argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  return {argc, argv};
}

}  // namespace banc
