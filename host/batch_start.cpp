#include "host/batch_start.h"

#include "platform/host_output.h"

namespace kiv {

// Without the choice of drawings there is nothing to begin; the person is told where to go instead.
bool startBatch() {
  printError(L"連続変換はこの版ではまだ使用できません. 図面ごとに変換してください.");
  return false;
}

}  // namespace kiv
