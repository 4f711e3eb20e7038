#pragma once
// What the program and its workers tell each other, each as one line.

#include <optional>
#include <string>
#include <string_view>

#include "cli/convert/output_plan.h"
#include "cli/reports/drawing_report.h"

namespace kivcli {

std::string lineOf(const DrawingReport& report);
std::string lineOf(const PlannedDrawing& drawing);

// Nothing for a line that is not one of these.
std::optional<DrawingReport> reportOf(std::string_view line);
std::optional<PlannedDrawing> plannedOf(std::string_view line);

}  // namespace kivcli
