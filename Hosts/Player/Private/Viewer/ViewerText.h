#pragma once

#include "CoreMinimal.h"

#include <QString>

namespace Flitmark
{

inline QString ToQString(const FString& InText)
{
	return QString::fromUtf16(*InText, InText.Len());
}

inline FString ToFString(const QString& InText)
{
	return FString(InText.toStdU16String());
}

} // namespace Flitmark
