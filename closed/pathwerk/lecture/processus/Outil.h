// Runs another program over a drawing as a process of its own, with everything limited.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pathwerk::lecture::processus {

struct MoyensOutil {
  std::string programme;  // a name is looked for in the system's folders, a path is taken as it is
  std::chrono::milliseconds delai{20000};
  std::size_t volume = std::size_t{32} << 20;  // bytes of output
  std::size_t memoire = std::size_t{1} << 30;  // bytes of address space
  std::string dossier;  // where the private folder is made; empty: the system's temporary one
};

// A file that lies in the private folder.
struct DepotOutil {
  std::string nom;
  std::string_view contenu;
};

enum class IssueOutil : std::uint8_t {
  Fini,      // the process ended by itself, or the receiver had enough
  Absent,    // there is no such program
  Delai,     // it took too long
  Volume,    // its output went past the limit
  Ecriture,  // a file of the folder can't be written
  Systeme,   // no process can be made
};

struct FinOutil {
  IssueOutil issue = IssueOutil::Fini;
  std::string detail;
  int code = 0;  // its exit code, or 128 + the signal that ended it
};

// Runs the program in an empty folder of its own (mode 0700) that holds `depots` and is gone afterwards, with
// nothing in its environment but PATH and TMPDIR, no input, no messages. `recoit` gets the output as it comes; its
// false ends the process. `attente`, which may be empty, is called some twenty times a second with the share of the
// time that has gone.
FinOutil LanceOutil(const MoyensOutil& moyens, const std::vector<std::string>& arguments,
                    std::span<const DepotOutil> depots, const std::function<bool(std::string_view)>& recoit,
                    const std::function<void(double)>& attente);

}  // namespace pathwerk::lecture::processus
