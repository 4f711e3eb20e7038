#pragma once
// The variables of the header.

#include <string>
#include <string_view>

#include "base/result.h"
#include "embedded/dwg/fields/field.h"

namespace cad::dwg {

// `section`: DwgFile::header(). Names are the variables' without the dollar sign ("LTSCALE", "CLAYER");
// what DXF has in another form has the name of its content: "HANDSEED" a handle, times as Date,
// "LAYER CONTROL" and the other tables' handles.
Fields readHeader(std::string_view section, Version version);

// The section with these variables changed, all else copied.
base::Result<std::string> rewriteHeader(std::string_view section, Version version,
                                        const FieldChanges& changes);

}  // namespace cad::dwg
