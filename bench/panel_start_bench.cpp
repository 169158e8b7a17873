// SPDX-License-Identifier: MIT
// Measures the time from process start to the first painted window and the most memory used until then, for the panel
// and for a plain Qt program with a similar window, in turn, off screen. Prints medians and ratios. Also counts how
// often the idle panel wakes up in ten seconds.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

struct Run {
  double milliseconds = 0;
  double megabytes = 0;
};

/// Runs a program to its end and discards its output.
Run Measure(const std::vector<std::string>& command) {
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, 1);
    dup2(nowhere, 2);
    execv(words[0], words.data());
    _exit(127);
  }
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "%s ended badly\n", words[0]);
    std::exit(1);
  }
  return {time.count(), static_cast<double>(usage.ru_maxrss) / 1024};
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

/// The number of voluntary context switches of a process, from /proc.
long Wakeups(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("voluntary_ctxt_switches:", 0) == 0) return std::atol(line.c_str() + 24);
  }
  return -1;
}

/// The wake-ups of the panel's window thread in ten seconds with the machine at rest.
long IdleWakeups(const std::string& root) {
  int in[2];
  if (pipe(in) != 0) return -1;
  const pid_t child = fork();
  if (child == 0) {
    dup2(in[0], 0);
    // With its own copy of the writing end open, the panel would never see the end of input.
    close(in[1]);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, 1);
    dup2(nowhere, 2);
    execl(PNLPANEL, PNLPANEL, "--headless", "--rpc", "--root", root.c_str(), nullptr);
    _exit(127);
  }
  std::this_thread::sleep_for(std::chrono::seconds(3));
  const long before = Wakeups(child);
  std::this_thread::sleep_for(std::chrono::seconds(10));
  const long after = Wakeups(child);
  close(in[1]);
  close(in[0]);
  waitpid(child, nullptr, 0);
  return after - before;
}

}  // namespace

// With --brief every program is started once, and the idle panel isn't watched.
int main(int argc, char** argv) {
  const bool brief = argc == 2 && std::string_view(argv[1]) == "--brief";
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  char pattern[] = "/tmp/pnl-bench-XXXXXX";
  const std::string root = mkdtemp(pattern);
  const std::vector<std::string> panel{PNLPANEL, "--headless", "--until-painted", "--root", root};
  const std::vector<std::string> plain{PLAIN_QT_PANEL};
  const int runs = brief ? 0 : 15;
  std::vector<double> panelTime, plainTime, timeRatio, panelMemory, plainMemory;
  Measure(panel);
  Measure(plain);
  for (int i = 0; i < runs; ++i) {
    const Run a = Measure(panel);
    const Run b = Measure(plain);
    panelTime.push_back(a.milliseconds);
    plainTime.push_back(b.milliseconds);
    timeRatio.push_back(a.milliseconds / b.milliseconds);
    panelMemory.push_back(a.megabytes);
    plainMemory.push_back(b.megabytes);
  }
  if (!brief) {
    std::printf("start to first paint   panel %.0f ms   plain Qt %.0f ms   ratio %.2f (at most 1.5)\n",
                Median(panelTime), Median(plainTime), Median(timeRatio));
    std::printf("most memory            panel %.1f MB  plain Qt %.1f MB  ratio %.2f (at most 1.5)\n",
                Median(panelMemory), Median(plainMemory), Median(panelMemory) / Median(plainMemory));
    std::printf("wake-ups of the resting panel in 10 s: %ld (0)\n", IdleWakeups(root));
  }
  const std::string cleanUp = "rm -rf " + root;
  return std::system(cleanUp.c_str());
}
