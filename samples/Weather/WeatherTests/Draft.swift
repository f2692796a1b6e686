// Ideas for more tests: time zones, the turn of the year.
