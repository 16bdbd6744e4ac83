// Plays NVIDIA's management library: one card at 0000:01:00.0. FAKE_NVIDIA_LOG names a file that gets the name of each
// function that is called; FAKE_NVIDIA_LOAD is how busy the card is, in percent.

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

struct Utilization {
  unsigned int gpu, memory;
};

int card = 0;

void log(const char* function) {
  const char* path = std::getenv("FAKE_NVIDIA_LOG");
  std::FILE* file = path ? std::fopen(path, "a") : nullptr;
  if (!file) return;
  std::fprintf(file, "%s ", function);
  std::fclose(file);
}

}  // namespace

extern "C" {

int nvmlInitWithFlags(unsigned int flags) {
  log(flags == 2 ? "init" : "attach");
  return 0;
}
int nvmlShutdown() {
  log("shutdown");
  return 0;
}
int nvmlDeviceGetHandleByPciBusId_v2(const char* busID, int** device) {
  *device = &card;
  return std::strcmp(busID, "0000:01:00.0") == 0 ? 0 : 6;
}
int nvmlDeviceGetUtilizationRates(int* device, Utilization* utilization) {
  log("ask");
  const char* load = std::getenv("FAKE_NVIDIA_LOAD");
  if (device != &card || !load) return 3;
  *utilization = {static_cast<unsigned int>(std::atoi(load)), 1};
  return 0;
}
}
