// Every exchange with the board as two lines of a file (--wire).
#pragma once

#include <cstdio>
#include <memory>
#include <string>

#include "base/SansCopie.h"
#include "closed/ZenikCom.h"

namespace ovelin::cli {

class JournalFil : base::SansCopie {
 public:
  JournalFil() = default;
  ~JournalFil();

  // The system's reason when the file can't be written, "" when it can.
  std::string Ouvre(const std::string& chemin);
  // The same at the end: a line that never reached the disk.
  std::string Ferme();
  // The link with this file before it. The file outlives the link.
  std::unique_ptr<zenikcom::Liaison> Enveloppe(std::unique_ptr<zenikcom::Liaison> liaison);

  // Number, seconds since the first one, ">" for the request and "<" for the reply, 37 bytes in hexadecimal, behind
  // a reply the result.
  void Note(long numero, double secondes, char sens, const zenikcom::TamponOctets& octets,
            const std::string& suite = "");

 private:
  std::FILE* fichier_ = nullptr;
};

}  // namespace ovelin::cli
