#include "TessaryRenderer/RendererMain.h"

int main(int argumentCount, char** arguments) {
  tessary::RendererMain::main(argumentCount, arguments);
}
