/** A library that hands out no module. */
int NoEntry()
{
	return 0;
}
