#include "qt/application.h"

int main(int argc, char** argv) {
    return parlane::RunProgram(argc, argv);
}
