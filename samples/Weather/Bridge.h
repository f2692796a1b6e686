//
//  Bridge.h
//  Weather
//

#ifndef WEATHER_BRIDGE_H
#define WEATHER_BRIDGE_H

/* The barometer of the device, in hectopascals. */
double weather_pressure(void);

#endif
