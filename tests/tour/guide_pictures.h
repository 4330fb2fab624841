// The pictures of the user guide: which of the tour's pictures they are.
#pragma once

#include <QString>
#include <vector>

namespace brovanta::tour {

/// A picture of docs/guide/pictures.
struct GuidePicture {
  const char* chapter;  ///< of the tour
  const char* picture;  ///< as the chapter names it; the first one of that name counts
  const char* file;     ///< without ".png"
};

[[nodiscard]] const std::vector<GuidePicture>& GuidePictures();

/// The name of the guide's picture that this one of a chapter is, empty for most.
[[nodiscard]] QString GuideFile(const QString& chapter, const QString& picture);

/// Those of the guide's pictures that are not in the folder. Without a server in the build its
/// chapters are not played, and their pictures are not asked for.
[[nodiscard]] QStringList MissingGuidePictures(const QString& folder);

}  // namespace brovanta::tour
