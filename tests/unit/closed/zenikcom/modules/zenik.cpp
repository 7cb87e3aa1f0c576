// A library of the user's, as small as can be: it answers every letter with a one in byte 2.
#include <cstdint>
#include <cstdlib>

namespace {
bool Debranchee() { return std::getenv("ZENIK_ESSAI_DEBRANCHEE") != nullptr; }
}  // namespace

extern "C" {
#ifndef SANS_CONNECTED
std::int32_t ZENIK_IsConnected(void);
std::int32_t ZENIK_IsConnected(void) { return Debranchee() ? 0 : 1; }
#endif
#ifndef SANS_SEND
std::int32_t ZENIK_Send(std::uint8_t t[37], std::int32_t* mode);
std::int32_t ZENIK_Send(std::uint8_t t[37], std::int32_t* mode) {
#ifdef AUTRE_LETTRE
  t[1] = '?';
#endif
  t[2] = 1;
  t[36] = static_cast<std::uint8_t>(*mode);
  return Debranchee() ? -7 : 1;
}
#endif
#ifndef SANS_CLOSE
void ZENIK_Close(void);
void ZENIK_Close(void) {}
#endif
}
