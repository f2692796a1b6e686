#include "app/Application.h"

int main(int argc, char** argv) {
  return quillmeter::runApplication(argc, argv);
}
