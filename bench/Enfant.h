// A piece of work in a process of its own: a limit on its time, and its memory measured from nothing.
#pragma once

#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <optional>

namespace banc {

// Processor time, so that other work on the machine doesn't count.
inline double Secondes() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

// Runs `f` in a child and hands its result over. None: it took more than `limite` seconds of processor time, or
// died.
template <class Resultat>
std::optional<Resultat> DansUnEnfant(const std::function<Resultat()>& f, unsigned limite) {
  int tube[2];
  if (pipe(tube) != 0) return std::nullopt;
  std::fflush(stdout);
  const pid_t enfant = fork();
  if (enfant < 0) return std::nullopt;
  if (enfant == 0) {
    close(tube[0]);
    const rlimit l{limite, limite};
    setrlimit(RLIMIT_CPU, &l);
    const Resultat r = f();
    const bool ecrit = write(tube[1], &r, sizeof r) == static_cast<ssize_t>(sizeof r);
    _exit(ecrit ? 0 : 1);
  }
  close(tube[1]);
  Resultat r;
  const bool lu = read(tube[0], &r, sizeof r) == static_cast<ssize_t>(sizeof r);
  close(tube[0]);
  int etat = 0;
  waitpid(enfant, &etat, 0);
  if (!lu || !WIFEXITED(etat) || WEXITSTATUS(etat) != 0) return std::nullopt;
  return r;
}

// A line of /proc/self/status in bytes.
inline double Memoire(const char* ligne) {
  double ko = 0;
  if (std::FILE* f = std::fopen("/proc/self/status", "r")) {
    char texte[256];
    while (std::fgets(texte, sizeof texte, f) != nullptr) {
      if (std::strncmp(texte, ligne, std::strlen(ligne)) == 0)
        std::sscanf(texte + std::strlen(ligne) + 1, "%lf", &ko);
    }
    std::fclose(f);
  }
  return ko * 1024;
}

// Greatest memory that `f` takes above what was held before it, bytes.
template <class F>
double MemoireDe(F f) {
  malloc_trim(0);
  if (std::FILE* c = std::fopen("/proc/self/clear_refs", "w")) {
    std::fputs("5", c);
    std::fclose(c);
  }
  const double avant = Memoire("VmRSS");
  f();
  return Memoire("VmHWM") - avant;
}

// Mean time of as many runs as a third of a second takes, at least one: the clock may tick slowly.
template <class F>
double TempsMoyen(F f) {
  const double debut = Secondes();
  double duree = 0;
  int fois = 0;
  do {
    f();
    ++fois;
    duree = Secondes() - debut;
  } while (duree < 0.33);
  return duree / fois;
}

}  // namespace banc
