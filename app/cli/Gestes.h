// What a hand does at the virtual board in the course of a call (--hand).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "closed/ZenikCom.h"

namespace ovelin::cli::Gestes {

// The link, with each of these gestures done just before the exchange that it names, or before the first one that
// comes behind it. Another board than the virtual one is left alone.
std::unique_ptr<zenikcom::Liaison> Enveloppe(std::unique_ptr<zenikcom::Liaison> liaison,
                                             const std::vector<std::string>& gestes);

}  // namespace ovelin::cli::Gestes
