#include "worker/run.hpp"

int main(int argc, char** argv) {
  return RunWorker(argc, argv);
}
