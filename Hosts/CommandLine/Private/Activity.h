#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace Flitmark
{

/**
 * Says on the terminal what the program is at, once that has taken a second; nothing where standard error is no terminal.
 * The line is gone when this is, and while a note is printed. One at a time.
 */
class FActivity
{
public:
	/** InWhat: such as "reading film.xml". */
	explicit FActivity(std::string InWhat);
	~FActivity();
	FActivity(const FActivity&) = delete;
	FActivity& operator=(const FActivity&) = delete;

	/** The next thing that it is at. */
	void SetWhat(std::string InWhat);

	/** From 0 to 1. */
	void SetShare(double InShare);

	/** Takes the line off the terminal if there is one; the next moment puts it there again. */
	static void Clear();

private:
	void Work(std::stop_token InStop);

	std::mutex Mutex;
	std::condition_variable_any Wake;
	std::string What;
	double Share = 0.0;
	/** Last, so that it ends first. */
	std::jthread Thread;
};

} // namespace Flitmark
