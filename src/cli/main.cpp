#include "cli/Tool.h"

int main(int argc, char** argv) {
  return quillmeter::runTool(argc, argv);
}
