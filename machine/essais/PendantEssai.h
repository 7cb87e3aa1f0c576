// What holds while a test moves the machine.
#pragma once

#include <cstdint>

namespace ovelin {

// The board executes motion, or somebody is about to give it some.
bool MachineBouge();

// While one stands, a test runs: windows that would be closed beep and stay, commands that would disturb it beep,
// and no run switches the spindle. At its end all of that is as before, whichever way the test was left.
class PendantEssai {
 public:
  PendantEssai();
  ~PendantEssai();
  PendantEssai(const PendantEssai&) = delete;
  PendantEssai& operator=(const PendantEssai&) = delete;

 private:
  std::int16_t broche_;
};

}  // namespace ovelin
