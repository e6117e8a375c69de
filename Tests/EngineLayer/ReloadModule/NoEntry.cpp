/** A library that does not provide a module. */
int NoEntry()
{
	return 0;
}
