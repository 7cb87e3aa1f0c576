// The few functions of the HID library that the link needs, as a table: a test fills the table with its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "closed/ZenikCom.h"

namespace zenikcom {

struct FonctionsHid {
  std::function<std::vector<AppareilUsb>(IdentiteUsb)> liste;  // 0000:0000 lists every device
  std::function<void*(const std::string& chemin)> ouvre;       // null: not opened
  std::function<void(void*)> ferme;
  // Bytes written, the report number among them; below 0: failed.
  std::function<int(void*, const std::uint8_t*, std::size_t)> ecrit;
  // Bytes read, 0 when the time is over, below 0: failed.
  std::function<int(void*, std::uint8_t*, std::size_t, int ms)> lit;
};

}  // namespace zenikcom
