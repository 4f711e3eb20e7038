#include "host/conversion_context.h"

namespace kiv {

ConversionContext& conversionContext() {
  static ConversionContext context;
  return context;
}

}  // namespace kiv
