#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/file_text.h"

namespace brivane {

/// Appends the head of a 3-D polyline in one colour (DXF colour number) on layer "1"; vertices
/// follow it, and a "SEQEND" ends it.
void WritePolylineHeader(FileText& text, std::int16_t colour);

/// The lines of a vertex before its coordinates; the same for all vertices of a polyline.
std::string VertexHead(std::int16_t colour);

/// Appends one vertex of a 3-D polyline, mm. Throws GeometryFault for a coordinate that is not
/// finite.
void WriteVertex(FileText& text, std::string_view vertexHead, double x, double y, double z,
                 char decimalMark);

/// Appends the end of the polyline that stands open.
void WritePolylineEnd(FileText& text);

/// Appends what stands before the entities: a comment line and the section's head.
void WriteEntitiesHead(FileText& text, std::string_view comment);

/// Appends what stands after the last entity.
void WriteEntitiesEnd(FileText& text);

/// About how many bytes one vertex takes, for reserving.
inline constexpr std::size_t kVertexBytes = 112;

}  // namespace brivane
