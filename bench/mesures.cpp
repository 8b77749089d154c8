#include "mesures.h"

#include <sys/resource.h>

#include <fstream>
#include <string>

namespace arbolix::bench {

double MemoirePointeMo() {
    rusage r{};
    getrusage(RUSAGE_SELF, &r);
    return static_cast<double>(r.ru_maxrss) / 1024.0;
}

double MemoireActuelleMo() {
    std::ifstream f("/proc/self/statm");
    long pages = 0, residentes = 0;
    f >> pages >> residentes;
    return static_cast<double>(residentes) * 4096.0 / (1024.0 * 1024.0);
}

}  // namespace arbolix::bench
