import SwiftUI

/// One hour in the list: time, temperature, and a drop when it rains.
struct ForecastRow: View {
    let forecast: Forecast

    var body: some View {
        HStack {
            Text(forecast.hour, style: .time)
            Spacer()
            if forecast.isWet {
                Image(systemName: "drop.fill")  // blue on both backgrounds
                    .foregroundStyle(.blue)
            }
            Text(forecast.temperature.formatted)
                .monospacedDigit()
        }
        .padding(.vertical, 4)
    }
}
