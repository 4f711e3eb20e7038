#include "host/conversion_context.h"

#include "ui/main_dialog.h"

namespace kiv {

ConversionContext::ConversionContext() = default;
ConversionContext::~ConversionContext() = default;
ConversionContext::ConversionContext(ConversionContext&&) noexcept = default;
ConversionContext& ConversionContext::operator=(ConversionContext&&) noexcept = default;

ConversionContext& conversionContext() {
  static ConversionContext context;
  return context;
}

}  // namespace kiv
