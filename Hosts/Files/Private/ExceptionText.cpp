#include "Files/ExceptionText.h"

#include <new>
#include <stdexcept>
#include <system_error>

namespace Flitmark
{

std::string ExplainException(const std::exception& InException)
{
	// A length that no container can have comes of a size that no memory could hold.
	if (dynamic_cast<const std::bad_alloc*>(&InException) != nullptr ||
		dynamic_cast<const std::length_error*>(&InException) != nullptr)
	{
		return "there is not enough memory";
	}
	const auto* const System = dynamic_cast<const std::system_error*>(&InException);
	if (System == nullptr)
	{
		return InException.what();
	}
	// What starting a thread reports.
	return System->code() == std::errc::resource_unavailable_try_again
			   ? "no further thread can be started; there is not enough memory, or a limit on processes is reached"
			   : System->code().message();
}

} // namespace Flitmark
