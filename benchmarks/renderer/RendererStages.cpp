// TessaryRenderer with a clock. The times go to memory that is shared through a file, which stays mapped when the
// process closes its descriptors and enters its sandbox.

#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "TessaryRenderer/RendererMain.h"

#include "StageClock.h"

namespace {

using tessary::benchmarks::StageTimes;

StageTimes* times = nullptr;

void note(tessary::RendererMain::Stage stage) {
  (*times)[static_cast<std::size_t>(stage) + 1] = tessary::benchmarks::now();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::uint64_t entry = tessary::benchmarks::now();
  const char* path = std::getenv(tessary::benchmarks::stageFileVariable);
  const int file = path == nullptr ? -1 : ::open(path, O_RDWR | O_CLOEXEC);
  void* shared = ::mmap(nullptr, sizeof(StageTimes), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (shared == MAP_FAILED) return 2;
  times = static_cast<StageTimes*>(shared);
  times->front() = entry;
  tessary::RendererMain::main(argumentCount, arguments, note);
}
