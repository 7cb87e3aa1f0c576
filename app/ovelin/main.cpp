// ovelin: the program with windows.
#include "app/ovelin/Programme.h"

int main(int argc, char** argv) { return ovelin::LanceProgramme(argc, argv); }
